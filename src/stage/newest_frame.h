#pragma once

#include <atomic>
#include <cstdint>
#include <functional>
#include <mutex>
#include <vector>

namespace quillora::stage {

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
    /// came before the next take().
    void onChange(std::function<void()> changed);

    /// Offers @p frame, and gives a used buffer back in its place. Any thread.
    void put(CameraFrame& frame);
    /// There is no picture any more. Any thread.
    void clear();
    /// Exchanges @p frame for the newest picture, which is empty after clear(). False, and nothing done, when
    /// nothing has changed since the last time. Any thread.
    bool take(CameraFrame& frame);

    /// Whether anybody looks at the pictures: a camera that fills a hidden surface can spare itself the work.
    void setWanted(bool wanted) { m_wanted = wanted; }
    bool wanted() const { return m_wanted; }

  private:
    void announce(std::unique_lock<std::mutex>& lock);

    std::mutex m_mutex;
    CameraFrame m_frame{};
    bool m_fresh = false;
    std::function<void()> m_changed = [] {};
    std::atomic<bool> m_wanted = true;
};

} // namespace quillora::stage
