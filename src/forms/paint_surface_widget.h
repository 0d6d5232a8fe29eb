#pragma once

#include "forms/pointer_area.h"
#include "forms/widget_screen.h"

#include <QImage>

namespace quillora::forms {

/// Shows the pixels of a raster surface of the drawing board, one on one pixel of the form, and nothing else:
/// they are the lecture's. It copies only what it paints.
class PaintSurfaceWidget : public PointerArea {
    Q_OBJECT

  public:
    explicit PaintSurfaceWidget(QWidget* parent);

    /// Where a surface tells what changed in it.
    WidgetScreen& screen() { return m_screen; }
    /// The surface that is seen here from now on, which must outlive its being seen; null for none.
    void setSurface(drawing::Surface* surface);

    /// The end of an event: what was told is on the screen when this returns. What was drawn through the
    /// device context and not told follows with the toolkit's own next repaint, which is asked for.
    void finishEvent();

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    void copyPixels(const QRect& part);

    WidgetScreen m_screen{*this};
    drawing::Surface* m_surface = nullptr;
    QImage m_pixels;
};

} // namespace quillora::forms
