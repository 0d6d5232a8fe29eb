#pragma once

#include "stage/camera_settings.h"
#include "stage/newest_frame.h"
#include "stage/patience.h"

#include <condition_variable>
#include <cstdint>
#include <functional>
#include <mutex>
#include <optional>
#include <utility>
#include <vector>

namespace quillora::stage {

/// What the thread of forms and logic and the thread of one camera have to tell each other, so that a driver
/// that takes its time keeps nobody waiting: orders go one way; settings, pictures and how far the device is
/// go the other. Orders can't pile up: there is at most one a setting.
///
/// A thread that hangs is abandoned rather than waited for. It reaches nothing but this object from then on,
/// which therefore both threads own.
class CameraMailbox {
  public:
    /// What was ordered since the last time.
    struct Orders {
        bool readSettings = false;
        /// One a setting, with its identifier, in the order in which they were given last: a value that is
        /// set after an automatic mode was switched off would be refused before it.
        std::vector<std::pair<std::uint32_t, int>> changes{};

        bool operator==(const Orders&) const = default;
    };

    /// Pictures go to @p frames, which must live until abandon(). @p wakeUp is called after each order, on
    /// the thread of forms and logic and under the lock: it tells the camera's thread to take orders, and
    /// must not call back.
    CameraMailbox(NewestFrame& frames, std::function<void()> wakeUp);

    // For the thread of forms and logic. None of these waits for the device but those that say so. Once the
    // device is abandoned it is neither opening nor open, and has no settings.

    /// Whether the device has neither opened nor failed yet. At first it is opening.
    bool opening() const;
    /// Whether the device is open. Becomes false by itself soon after it is unplugged.
    bool open() const;
    /// Waits while it is opening, and says whether it is open. An event that @p patience lets through may
    /// abandon it, but must leave this object where it is.
    bool waitUntilOpen(const Patience& patience);
    /// Waits until the device is closed: after it was abandoned, after it failed. False when it isn't in
    /// time.
    bool waitUntilClosed(const Patience& patience);

    /// Whether pictures are wanted. At first they are not.
    void setPreview(bool running);

    /// As the device was read last, with what was ordered since: the next order may depend on it. None before
    /// it opens and once it is closed. The camera's thread may ask, too.
    std::vector<CameraSetting> settings() const;
    /// Orders settings() to be read again.
    void refreshSettings();
    /// Orders a value, in place of one that is waiting for the same setting. Nothing is refused here: what
    /// the device doesn't have, or refuses, is left as it was, and settings() says so once it was read again.
    void changeSetting(std::uint32_t id, int value);

    /// Orders the device to be closed, and takes nothing from it any more. Can't be taken back.
    void abandon();

    // For the camera's thread.

    /// None once the device is to be closed.
    std::optional<Orders> takeOrders();
    void reportOpen();
    /// The last thing to be said, when the device is closed, or never opened. Clears the picture.
    void reportClosed();
    /// What the device was read to have. Orders that are still waiting stand above it.
    void reportSettings(std::vector<CameraSetting> settings);
    /// Passes @p frame on as NewestFrame::put() does, if pictures are wanted.
    void put(CameraFrame& frame);
    /// What a picture may fill; empty while none are wanted.
    FrameSize room() const;

  private:
    enum class State { opening, open, closed };

    bool abandoned() const { return m_frames == nullptr; }
    bool isNow(State state) const { return m_state == state && !abandoned(); }
    void assume(std::uint32_t id, int value);

    mutable std::mutex m_mutex;
    std::condition_variable m_changed;
    const std::function<void()> m_wakeUp;
    State m_state = State::opening;
    bool m_preview = false;
    Orders m_orders{};
    std::vector<CameraSetting> m_settings{};
    /// Null once the device was abandoned. Pictures are put there under the lock, so that none comes after.
    NewestFrame* m_frames;
};

} // namespace quillora::stage
