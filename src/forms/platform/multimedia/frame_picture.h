#pragma once

#include <QImage>
#include <QVideoFrame>

/// The picture of a frame; null where it has none. The toolkit's own conversion goes by way of OpenGL, which
/// takes seconds to come up on a display without a graphics card, and whole frames' time for each frame after
/// that.
QImage pictureOf(QVideoFrame frame);
