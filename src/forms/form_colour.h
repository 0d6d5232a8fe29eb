#pragma once

#include "drawing/colour.h"

#include <QColor>

namespace quillora::forms {

/// The toolkit's colour for one of the drawing board's, and back.
inline QColor formColour(drawing::Colour colour)
{
    return {drawing::redOf(colour), drawing::greenOf(colour), drawing::blueOf(colour)};
}

inline drawing::Colour drawingColour(const QColor& colour)
{
    return drawing::rgb(colour.red(), colour.green(), colour.blue());
}

} // namespace quillora::forms
