#include "capture/platform/x11/damage_tracker.h"

#include <xcb/damage.h>

#include <utility>

namespace quillora::capture {

DamageTracker::DamageTracker(const X11Connection& connection)
    : m_connection(connection), m_trusted(connection.extensions().damage.has_value())
{
    if (!m_trusted)
        return;
    // At this level an event comes only when the damaged area grows, and says how large it has become: so
    // there are few of them however much is drawn, and nothing has to be asked back.
    m_damage = xcb_generate_id(m_connection.get());
    xcb_damage_create(m_connection.get(), m_damage, m_connection.root(),
                      XCB_DAMAGE_REPORT_LEVEL_BOUNDING_BOX);
}

void DamageTracker::handleEvent(const xcb_generic_event_t& event)
{
    const auto first = m_connection.extensions().damage;
    if (!first || (event.response_type & 0x7f) != *first + XCB_DAMAGE_NOTIFY)
        return;
    const auto& notification = reinterpret_cast<const xcb_damage_notify_event_t&>(event);
    m_pending = boundingBox(m_pending, {notification.area.x, notification.area.y, notification.area.width,
                                        notification.area.height});
}

PixelRectangle DamageTracker::take()
{
    if (m_pending.empty())
        return {};
    xcb_damage_subtract(m_connection.get(), m_damage, XCB_NONE, XCB_NONE);
    xcb_flush(m_connection.get());
    return std::exchange(m_pending, {});
}

void DamageTracker::countMiss() { m_trusted = m_trusted && ++m_misses <= kMissesForgiven; }

} // namespace quillora::capture
