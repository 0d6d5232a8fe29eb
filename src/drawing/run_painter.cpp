#include "drawing/run_painter.h"

#include <algorithm>

namespace quillora::drawing {

void RunPainter::paint(std::int64_t y, std::int64_t left, std::int64_t right)
{
    left = std::max<std::int64_t>(left, 0);
    right = std::min<std::int64_t>(right, m_image.width() - 1);
    if (y < 0 || y >= m_image.height() || left > right)
        return;
    Colour* const first = &m_image.at(static_cast<int>(left), static_cast<int>(y));
    Colour* const end = first + (right - left + 1);
    if (m_ink.operation == RasterOperation::copyPen)
        std::fill(first, end, m_ink.colour);
    else
        for (Colour* pixel = first; pixel != end; ++pixel)
            *pixel ^= m_ink.colour;
    m_left = std::min(m_left, static_cast<int>(left));
    m_right = std::max(m_right, static_cast<int>(right));
    m_top = std::min(m_top, static_cast<int>(y));
    m_bottom = std::max(m_bottom, static_cast<int>(y));
}

base::PixelRectangle RunPainter::touched() const
{
    if (m_right < m_left)
        return {};
    return {m_left, m_top, m_right - m_left + 1, m_bottom - m_top + 1};
}

} // namespace quillora::drawing
