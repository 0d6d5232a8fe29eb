#include "stage/camera_mailbox.h"

#include <algorithm>

namespace quillora::stage {

CameraMailbox::CameraMailbox(NewestFrame& frames, std::function<void()> wakeUp)
    : m_wakeUp(std::move(wakeUp)), m_frames(&frames)
{}

bool CameraMailbox::opening() const
{
    const std::lock_guard lock(m_mutex);
    return isNow(State::opening);
}

bool CameraMailbox::open() const
{
    const std::lock_guard lock(m_mutex);
    return isNow(State::open);
}

bool CameraMailbox::waitUntilOpen(const Patience& patience)
{
    std::unique_lock lock(m_mutex);
    waitFor(m_changed, lock, patience, [this] { return !isNow(State::opening); });
    return isNow(State::open);
}

bool CameraMailbox::waitUntilClosed(const Patience& patience)
{
    std::unique_lock lock(m_mutex);
    return waitFor(m_changed, lock, patience, [this] { return m_state == State::closed; });
}

void CameraMailbox::setPreview(bool running)
{
    const std::lock_guard lock(m_mutex);
    m_preview = running;
}

std::vector<CameraSetting> CameraMailbox::settings() const
{
    const std::lock_guard lock(m_mutex);
    return m_settings;
}

void CameraMailbox::refreshSettings()
{
    const std::lock_guard lock(m_mutex);
    m_orders.readSettings = true;
    m_wakeUp();
}

void CameraMailbox::changeSetting(std::uint32_t id, int value)
{
    const std::lock_guard lock(m_mutex);
    std::erase_if(m_orders.changes, [&](const auto& earlier) { return earlier.first == id; });
    m_orders.changes.emplace_back(id, value);
    assume(id, value);
    m_wakeUp();
}

void CameraMailbox::abandon()
{
    const std::lock_guard lock(m_mutex);
    m_frames = nullptr;
    m_settings.clear();
    m_wakeUp();
}

std::optional<CameraMailbox::Orders> CameraMailbox::takeOrders()
{
    const std::lock_guard lock(m_mutex);
    if (abandoned())
        return std::nullopt;
    return std::exchange(m_orders, {});
}

void CameraMailbox::reportOpen()
{
    const std::lock_guard lock(m_mutex);
    m_state = State::open;
    m_changed.notify_all();
}

void CameraMailbox::reportClosed()
{
    const std::lock_guard lock(m_mutex);
    m_state = State::closed;
    m_settings.clear();
    if (m_frames)
        m_frames->clear();
    m_changed.notify_all();
}

void CameraMailbox::reportSettings(std::vector<CameraSetting> settings)
{
    const std::lock_guard lock(m_mutex);
    if (abandoned())
        return;
    m_settings = std::move(settings);
    for (const auto& [id, value] : m_orders.changes)
        assume(id, value);
}

void CameraMailbox::put(CameraFrame& frame)
{
    const std::lock_guard lock(m_mutex);
    if (m_frames && m_preview)
        m_frames->put(frame);
}

FrameSize CameraMailbox::room() const
{
    const std::lock_guard lock(m_mutex);
    return m_frames && m_preview ? m_frames->room() : FrameSize{};
}

void CameraMailbox::assume(std::uint32_t id, int value)
{
    const auto found = std::ranges::find(m_settings, id, &CameraSetting::id);
    if (found != m_settings.end())
        found->value = value;
}

} // namespace quillora::stage
