#pragma once

class QWidget;

namespace quillora::forms {

/// A hairline between the parts of a bar, @p height pixels high.
QWidget* makeSeparator(int height, QWidget* parent);

} // namespace quillora::forms
