#pragma once

#include <QCursor>

#include <filesystem>

namespace quillora::forms {

/// The mouse pointer of a Windows cursor file (.CUR), hot spot included. Throws std::runtime_error when the
/// file is none.
QCursor readCursor(const std::filesystem::path& file);

} // namespace quillora::forms
