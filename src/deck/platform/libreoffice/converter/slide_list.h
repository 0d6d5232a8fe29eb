#pragma once

#include <filesystem>

namespace quillora::deck::libreoffice {

/// Whether @p deck is a deck in the form of an archive (.pptx, .odp) that names no slide at all. LibreOffice
/// gives such a deck a blank slide and does not tell; a presenter is to see that there is nothing in it.
/// False for everything that is not understood.
bool namesNoSlide(const std::filesystem::path& deck);

} // namespace quillora::deck::libreoffice
