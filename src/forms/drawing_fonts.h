#pragma once

#include "drawing/text_rasteriser.h"

#include <QFont>

namespace quillora::forms {

/// The toolkit's font for one of the drawing board's, whose points are measured at the form's fixed scale.
/// Where a family is not installed, one of the same widths stands in for it.
QFont formFont(const drawing::TextFont& font);

} // namespace quillora::forms
