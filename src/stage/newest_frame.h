#pragma once

#include <cstdint>
#include <functional>
#include <limits>
#include <mutex>
#include <vector>

namespace quillora::stage {

/// In pixels.
struct FrameSize {
    int width = 0;
    int height = 0;

    bool empty() const { return width <= 0 || height <= 0; }
    bool operator==(const FrameSize&) const = default;
};

/// One picture of a camera: rows from the top, each pixel 0xFFRRGGBB.
struct CameraFrame {
    int width = 0;
    int height = 0;
    std::vector<std::uint32_t> pixels{};

    bool empty() const { return pixels.empty(); }
};

/// Hands the newest picture from the camera's thread to the window's. It holds one: a window that is busy
/// misses pictures, and never finds a queue of old ones. Buffers go round, so that nothing is allocated while
/// the pictures keep their size.
class NewestFrame {
  public:
    /// @p changed is called on the thread that put() or clear() was called on, once for all the changes that
    /// came before the next take(). Any thread; a call of what was given before may still be under way.
    void onChange(std::function<void()> changed);

    /// Offers @p frame, and gives a used buffer back in its place. Any thread.
    void put(CameraFrame& frame);
    /// There is no picture any more. Any thread.
    void clear();
    /// Exchanges @p frame for the newest picture, which is empty after clear(). False, and nothing done, when
    /// nothing has changed since the last time. Any thread.
    bool take(CameraFrame& frame);

    /// How much of the screen there is for a picture; a larger one had better be made to fit it on the
    /// camera's thread. Empty while nobody looks: a camera that fills a hidden surface can spare itself the
    /// work. At first any picture has room. Any thread.
    void setRoom(FrameSize room);
    /// As it was set last. Any thread.
    FrameSize room() const;

  private:
    void announce(std::unique_lock<std::mutex>& lock);

    mutable std::mutex m_mutex;
    CameraFrame m_frame{};
    bool m_fresh = false;
    std::function<void()> m_changed = [] {};
    FrameSize m_room{std::numeric_limits<int>::max(), std::numeric_limits<int>::max()};
};

} // namespace quillora::stage
