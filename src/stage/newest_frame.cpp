#include "stage/newest_frame.h"

#include <utility>

namespace quillora::stage {

void NewestFrame::onChange(std::function<void()> changed)
{
    const std::lock_guard lock(m_mutex);
    m_changed = std::move(changed);
}

void NewestFrame::put(CameraFrame& frame)
{
    std::unique_lock lock(m_mutex);
    std::swap(m_frame, frame);
    announce(lock);
}

void NewestFrame::clear()
{
    std::unique_lock lock(m_mutex);
    m_frame = {};
    announce(lock);
}

bool NewestFrame::take(CameraFrame& frame)
{
    const std::lock_guard lock(m_mutex);
    if (!std::exchange(m_fresh, false))
        return false;
    std::swap(m_frame, frame);
    return true;
}

void NewestFrame::setRoom(FrameSize room)
{
    const std::lock_guard lock(m_mutex);
    m_room = room;
}

FrameSize NewestFrame::room() const
{
    const std::lock_guard lock(m_mutex);
    return m_room;
}

void NewestFrame::announce(std::unique_lock<std::mutex>& lock)
{
    const bool known = std::exchange(m_fresh, true);
    // Called without the lock: the receiver may take the picture at once.
    const auto changed = m_changed;
    lock.unlock();
    if (!known)
        changed();
}

} // namespace quillora::stage
