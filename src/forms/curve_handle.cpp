#include "forms/curve_handle.h"

#include "drawing/drawing_canvas.h"
#include "forms/look.h"

#include <QPainter>

namespace quillora::forms {

CurveHandle::CurveHandle(int index, QWidget* parent) : PointerArea(drawing::ScaleUnit::twips, parent)
{
    const int side = pixels({drawing::CurveHandle::kSide});
    setObjectName(QStringLiteral("imgBezier_%1").arg(index));
    setAccessibleName(tr("Curve handle %1").arg(index + 1));
    setFixedSize(side, side);
    setCursor(Qt::SizeAllCursor);
    hide();
}

void CurveHandle::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.fillRect(rect(), colours::kSurface);
    painter.fillRect(rect().adjusted(1, 1, -1, -1), colours::kText);
}

} // namespace quillora::forms
