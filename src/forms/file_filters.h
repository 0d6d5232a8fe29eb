#pragma once

#include <QStringList>

namespace quillora::forms {

/// The pairs of a filter text, "A (*.a)|*.a|B|*.b;*.c", as name filters of a file dialog: "A (*.a)" and
/// "B (*.b *.c)". A pair without a mask is left out.
QStringList nameFilters(const QString& filter);

/// A name filter that shows what any of the masks in @p text, such as "*.ppt; *.pptx", would show; empty for
/// a text that is no list of masks.
QString maskFilter(const QString& text);

} // namespace quillora::forms
