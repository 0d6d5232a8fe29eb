#include "forms/widget_screen.h"

#include <QWidget>

#include <utility>

namespace quillora::forms {

void WidgetScreen::show(const base::PixelRectangle& changed)
{
    gather({changed.left, changed.top, changed.width, changed.height});
}

void WidgetScreen::refresh()
{
    const QRect area = std::exchange(m_gathered, {}) & m_widget.rect();
    if (!area.isEmpty())
        m_widget.repaint(area);
}

} // namespace quillora::forms
