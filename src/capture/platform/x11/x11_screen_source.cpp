#include "capture/platform/x11/x11_screen_source.h"

#include "capture/platform/x11/screen_session.h"

#include <algorithm>
#include <stdexcept>
#include <utility>

namespace quillora::capture {

X11ScreenSource::X11ScreenSource(std::optional<std::string> displayName)
    : m_displayName(std::move(displayName))
{}

X11ScreenSource::~X11ScreenSource() = default;

template <typename Operation>
auto X11ScreenSource::withSession(const Operation& operation)
{
    const Clock::time_point start = Clock::now();
    try {
        if (!m_session)
            openSession(start);
        // From the start of the call, so that one which has to connect first takes no longer than another.
        const ConnectionWatchdog::Stretch stretch(m_session->watchdog(), start);
        auto result = operation(*m_session);
        m_pause = kFirstPause;
        return result;
    } catch (...) {
        if (m_session && m_session->broken())
            loseSession();
        throw;
    }
}

ScreenSource::Grab X11ScreenSource::grab(const PixelRectangle& region, const PointerDrawing& pointer)
{
    return withSession([&](ScreenSession& session) { return session.grab(region, pointer); });
}

PixelRectangle X11ScreenSource::screen()
{
    return withSession([](ScreenSession& session) { return session.screen(); });
}

PixelPoint X11ScreenSource::pointer()
{
    return withSession([](ScreenSession& session) { return session.pointer(); });
}

void X11ScreenSource::openSession(Clock::time_point now)
{
    if (now < m_nextAttempt)
        throw std::runtime_error("the display is gone");
    try {
        m_session = std::make_unique<ScreenSession>(m_displayName, now);
    } catch (...) {
        loseSession();
        throw;
    }
}

void X11ScreenSource::loseSession()
{
    m_session.reset();
    m_nextAttempt = Clock::now() + m_pause;
    m_pause = std::min(2 * m_pause, kLongestPause);
}

} // namespace quillora::capture
