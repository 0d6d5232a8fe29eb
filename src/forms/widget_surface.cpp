#include "forms/widget_surface.h"

#include "forms/look.h"

#include <QWidget>

namespace quillora::forms {

WidgetSurface::WidgetSurface(QWidget& widget, const base::TwipRectangle& place, AtFirst visibility)
    : m_widget(widget)
{
    WidgetSurface::move(place);
    // Told in any case: the toolkit counts a widget as hidden until it has a shown parent or was told.
    WidgetSurface::setVisible(visibility == AtFirst::shown);
}

void WidgetSurface::move(const base::TwipRectangle& place)
{
    m_place = place;
    m_widget.setGeometry(pixels(place.left), pixels(place.top), pixels(place.width), pixels(place.height));
}

bool WidgetSurface::visible() const { return !m_widget.isHidden(); }

void WidgetSurface::setVisible(bool visible) { m_widget.setVisible(visible); }

void WidgetSurface::bringToFront() { m_widget.raise(); }

} // namespace quillora::forms
