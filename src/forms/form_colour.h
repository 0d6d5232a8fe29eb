#pragma once

#include "base/colour.h"

#include <QColor>

namespace quillora::forms {

/// The toolkit's colour for one of ours, and back.
inline QColor toQColor(base::Colour colour)
{
    return {base::redOf(colour), base::greenOf(colour), base::blueOf(colour)};
}

inline base::Colour toColour(const QColor& colour)
{
    return base::rgb(colour.red(), colour.green(), colour.blue());
}

} // namespace quillora::forms
