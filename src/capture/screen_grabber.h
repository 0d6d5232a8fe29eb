#pragma once

#include "capture/capture_ports.h"
#include "capture/capture_region.h"
#include "capture/picture_converter.h"

#include <cstdint>
#include <memory>
#include <optional>

namespace quillora::capture {

/// The screen as pictures of the video. Opens the screen at the first grab, and looks for it again where it
/// can't be read: until it comes back, the picture is what it was last. Not thread-safe.
class ScreenGrabber {
  public:
    /// @p width and @p height of the video, in pixels. @p ports must outlive the grabber.
    ScreenGrabber(const CapturePorts& ports, int width, int height);

    /// Takes up what @p view shows now. Returns how many pixels of the picture may have changed.
    std::int64_t grab(const CaptureView& view);
    /// The picture, black before the first grab that succeeded.
    SharedPicture picture() { return m_converter.handOut(); }

  private:
    bool open();

    const CapturePorts& m_ports;
    int m_width;
    int m_height;
    std::unique_ptr<ScreenSource> m_screen{};
    std::optional<CaptureClock::time_point> m_nextTry{};
    PictureConverter m_converter;
};

} // namespace quillora::capture
