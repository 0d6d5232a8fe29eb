#pragma once

#include "drawing/pointer_event.h"
#include "drawing/surface.h"

#include <QWidget>

namespace quillora::forms {

/// A widget that tells what the pointer does on it, in the unit that its events count in: each position as
/// exact as the display tells it, from the widget's own corner. A second quick press is a press like any
/// other.
class PointerArea : public QWidget {
    Q_OBJECT

  public:
    PointerArea(drawing::ScaleUnit unit, QWidget* parent);

  signals:
    void MouseDown(const drawing::PointerEvent& event);
    void MouseMove(const drawing::PointerEvent& event);
    void MouseUp(const drawing::PointerEvent& event);

  protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;

    /// A press or release: the one button that changed.
    drawing::PointerEvent changeOf(const QMouseEvent& event) const;
    /// All buttons that are held.
    drawing::PointerEvent moveOf(const QMouseEvent& event) const;

  private:
    drawing::PointerEvent pointer(const QMouseEvent& event, int button) const;

    float m_unitsPerPixel;
};

} // namespace quillora::forms
