#pragma once

#include "stage/camera_settings.h"
#include "stage/newest_frame.h"
#include "stage/platform/v4l2/patience.h"

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace quillora::stage::v4l2 {

/// One camera from being opened to being closed, on a thread of its own: the only one that speaks with the
/// device, since any call of a driver may block for as long as it likes. Orders to it are notes that it finds
/// between two pictures, with one note a setting, so that they can't pile up.
///
/// A thread that hangs in the driver is let go rather than waited for; it reaches nothing of the program any
/// more, and closes the device should it ever come back. All operations are for the thread of forms and
/// logic.
class CameraThread {
  public:
    struct Target {
        std::string node;
        std::int32_t videoInput = 0;
        std::int16_t videoStandard = 0;
    };
    /// Begins to open the device. Pictures go to @p frames, which must outlive this object.
    CameraThread(Target target, NewestFrame& frames);
    /// Lets go at once.
    ~CameraThread();
    CameraThread(const CameraThread&) = delete;
    CameraThread& operator=(const CameraThread&) = delete;

    /// Whether the device sends pictures now, with the time that @p patience gives it for that.
    bool waitUntilOpen(const Patience& patience);
    bool opening() const;
    bool open() const;
    void setPreview(bool running);

    /// What the device can be set to, as it was read last; none when it is gone.
    std::vector<CameraSetting> settings() const;
    void refreshSettings();
    void changeSetting(std::uint32_t id, int value);

    /// Has the device closed, and takes no more pictures; returns at once.
    void letGo();
    /// The device's end of the connection, which outlives this object while the driver hangs.
    class Line;
    std::shared_ptr<Line> line() const { return m_line; }

  private:
    std::shared_ptr<Line> m_line;
};

/// Waits until the device of a connection that was let go is closed. False when it isn't in time.
bool waitUntilClosed(CameraThread::Line& line, const Patience& patience);

} // namespace quillora::stage::v4l2
