#include "forms/paint_canvas_widget.h"

#include "base/rounding.h"
#include "forms/curve_handle.h"
#include "forms/input_values.h"
#include "forms/look.h"
#include "forms/text_tool_box.h"

#include <QApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QStyleHints>

#include <cmath>
#include <utility>

namespace quillora::forms {

namespace {

/// Twips as a handle's state has them, in whole pixels.
int place(float twips) { return base::roundToInt(double(twips) / base::kTwipsPerPixel); }

} // namespace

PaintCanvasWidget::PaintCanvasWidget(QWidget* parent) : PaintSurfaceWidget(parent)
{
    setObjectName("picPaint");
    setAccessibleName(tr("Drawing board"));
    setFocusPolicy(Qt::StrongFocus);
    resize(pixels(drawing::DrawingCanvas::kWidth), pixels(drawing::DrawingCanvas::kHeight));

    m_selection = new PaintSurfaceWidget(this);
    m_selection->setObjectName("picSelect");
    m_selection->setAccessibleName(tr("Selected part of the drawing"));
    m_selection->setCursor(Qt::SizeAllCursor);
    m_selection->hide();
    m_textBox = new TextToolBox(this);
    for (int i = 0; i < int(m_handles.size()); ++i)
        m_handles[std::size_t(i)] = new CurveHandle(i, this);
    hide();
}

void PaintCanvasWidget::showState(const drawing::DrawingCanvas& canvas)
{
    const auto& selection = canvas.picSelect;
    standAt(*m_selection, {selection.Left, selection.Top, selection.Width, selection.Height},
            selection.Visible);
    for (std::size_t i = 0; i < m_handles.size(); ++i) {
        const auto& handle = canvas.imgBezier[i];
        standAt(*m_handles[i], {{place(handle.Left), place(handle.Top)}, m_handles[i]->size()},
                handle.Visible);
    }
    if (!canvas.txtText.Visible && m_textBox->hasFocus())
        setFocus();
    m_textBox->showState(canvas.txtText);
    standAt(*m_textBox, TextToolBox::placeOf(canvas.txtText), canvas.txtText.Visible);
    m_selection->finishEvent();
    finishEvent();
}

void PaintCanvasWidget::standAt(QWidget& floating, const QRect& where, bool visible)
{
    const bool wasVisible = !floating.isHidden();
    if (visible == wasVisible && (!visible || floating.geometry() == where))
        return;
    if (wasVisible)
        screen().gather(floating.geometry());
    if (visible)
        screen().gather(where);
    floating.setGeometry(where);
    floating.setVisible(visible);
}

void PaintCanvasWidget::focusCanvas()
{
    if (m_pressing)
        m_focusAfterPress = Focus::canvas;
    else
        setFocus();
}

void PaintCanvasWidget::focusText()
{
    if (m_pressing)
        m_focusAfterPress = Focus::text;
    else
        m_textBox->setFocus();
}

void PaintCanvasWidget::press(const drawing::PointerEvent& event)
{
    m_pressing = true;
    m_focusAfterPress = Focus::canvas;
    emit MouseDown(event);
    m_pressing = false;
    m_textBox->tellOfPressOnCanvas();
    if (m_focusAfterPress == Focus::text)
        m_textBox->setFocus();
}

void PaintCanvasWidget::mousePressEvent(QMouseEvent* event)
{
    m_secondPress.clear();
    press(changeOf(*event));
}

void PaintCanvasWidget::mouseMoveEvent(QMouseEvent* event)
{
    if (m_secondPress.empty()) {
        PaintSurfaceWidget::mouseMoveEvent(event);
        return;
    }
    m_secondPress.push_back(moveOf(*event));
    if (!isDrag(m_secondPress.back()))
        return;
    const auto held = std::exchange(m_secondPress, {});
    press(held.front());
    for (auto move = held.begin() + 1; move != held.end(); ++move)
        emit MouseMove(*move);
}

void PaintCanvasWidget::mouseReleaseEvent(QMouseEvent* event)
{
    if (std::exchange(m_secondPress, {}).empty())
        PaintSurfaceWidget::mouseReleaseEvent(event);
}

void PaintCanvasWidget::mouseDoubleClickEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton) {
        mousePressEvent(event);
        return;
    }
    emit DblClick();
    m_textBox->tellOfPressOnCanvas();
    m_secondPress = {changeOf(*event)};
}

bool PaintCanvasWidget::isDrag(const drawing::PointerEvent& event) const
{
    const auto& from = m_secondPress.front();
    const float reach = float(QGuiApplication::styleHints()->mouseDoubleClickDistance());
    return std::abs(event.x - from.x) > reach || std::abs(event.y - from.y) > reach;
}

void PaintCanvasWidget::keyReleaseEvent(QKeyEvent* event)
{
    if (!event->isAutoRepeat())
        emit KeyUp(keyValue(*event));
}

void PaintCanvasWidget::resizeEvent(QResizeEvent*) { emit Resize(); }

} // namespace quillora::forms
