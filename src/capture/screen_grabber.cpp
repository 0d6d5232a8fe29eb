#include "capture/screen_grabber.h"

#include "base/skip_failures.h"

namespace quillora::capture {

namespace {

using namespace std::chrono_literals;

/// How often a display that isn't there is looked for again.
constexpr auto kReopenInterval = 1s;

} // namespace

ScreenGrabber::ScreenGrabber(const CapturePorts& ports, int width, int height)
    : m_ports(ports), m_width(width), m_height(height), m_converter(width, height)
{}

std::int64_t ScreenGrabber::grab(const CaptureView& view)
{
    std::int64_t changedPixels = 0;
    base::skipFailures([&] {
        if (!m_screen && !open())
            return;
        const PixelRectangle region = regionOf(view, *m_screen, m_width, m_height);
        const ScreenSource::Grab taken = m_screen->grab(region, view.pointer);
        if (!taken.changed.empty())
            changedPixels = m_converter.update(taken.image, taken.changed);
    });
    return changedPixels;
}

bool ScreenGrabber::open()
{
    const auto now = CaptureClock::now();
    if (m_nextTry && now < *m_nextTry)
        return false;
    m_nextTry = now + kReopenInterval;
    m_screen = m_ports.openScreen();
    return m_screen != nullptr;
}

} // namespace quillora::capture
