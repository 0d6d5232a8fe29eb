#pragma once

#include "drawing/surface_screen.h"

#include <QRect>

class QWidget;

namespace quillora::forms {

/// The screen of a surface, where a widget shows it. Rectangles that are told while an event is handled are
/// gathered in one, since an exclusive-or pen tells each place twice; the widget paints it once, and at once.
class WidgetScreen : public drawing::SurfaceScreen {
  public:
    /// @p widget must outlive this object.
    explicit WidgetScreen(QWidget& widget) : m_widget(widget) {}

    void show(const base::PixelRectangle& changed) override;
    /// Also the end of an event.
    void refresh() override;

    /// Something else that is to be painted with the rest: what floats here and came, went or moved.
    void gather(const QRect& area) { m_gathered |= area; }

  private:
    QWidget& m_widget;
    QRect m_gathered;
};

} // namespace quillora::forms
