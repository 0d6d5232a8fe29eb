#include "deck/slide_pen.h"

#include "base/rounding.h"
#include "base/skip_failures.h"

#include <algorithm>
#include <limits>

namespace quillora::deck {
namespace {

/// A pen's place is a 16-bit integer; a pointer that was dragged further off stays at the edge of that range.
std::int16_t penPlace(float coordinate)
{
    using Range = std::numeric_limits<std::int16_t>;
    return static_cast<std::int16_t>(
        std::clamp<int>(base::roundToInt(coordinate), Range::min(), Range::max()));
}

} // namespace

void SlidePen::slide_img_MouseDown(int button, int /*shift*/, float x, float y)
{
    if (button != kLeftButton)
        return;
    m_lastPenX = penPlace(x);
    m_lastPenY = penPlace(y);
    m_mouse_lb = "down";
}

void SlidePen::slide_img_MouseMove(int button, int /*shift*/, float x, float y)
{
    if (button != kLeftButton || penMode != kPen || m_mouse_lb != "down")
        return;
    m_curPenX = penPlace(x);
    m_curPenY = penPlace(y);
    base::skipFailures([&] { m_slide_img.DrawSegment(m_curPenX, m_curPenY, m_lastPenX, m_lastPenY); });
    m_lastPenX = m_curPenX;
    m_lastPenY = m_curPenY;
}

void SlidePen::slide_img_MouseUp(int button, int /*shift*/, float /*x*/, float /*y*/)
{
    if (button == kLeftButton)
        m_mouse_lb = "up";
}

} // namespace quillora::deck
