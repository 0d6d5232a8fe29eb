#pragma once

#include "drawing/drawing_canvas.h"
#include "drawing/drawing_focus.h"
#include "forms/paint_surface_widget.h"

#include <array>
#include <vector>

namespace quillora::forms {

class TextToolBox;

/// The canvas `picPaint` with what floats over it: the lifted selection `picSelect`, the text box `txtText`
/// and the curve's handles `imgBezier`, live surfaces that can be taken and dragged. It tells what the
/// presenter does, and shows the drawing board's state when it is told to.
///
/// The second press of a double click is a double click and no press; if it turns into a drag after all, it
/// is a press from where it began, so that a hand that draws quick short strokes loses none of them.
class PaintCanvasWidget : public PaintSurfaceWidget, public drawing::DrawingFocus {
    Q_OBJECT

  public:
    explicit PaintCanvasWidget(QWidget* parent);

    PaintSurfaceWidget& picSelect() { return *m_selection; }
    TextToolBox& txtText() { return *m_textBox; }
    PointerArea& imgBezier(int index) { return *m_handles.at(std::size_t(index)); }

    /// What floats over the canvas stands as @p canvas says, and all that was drawn is on the screen, when
    /// this returns.
    void showState(const drawing::DrawingCanvas& canvas);

    void focusCanvas() override;
    void focusText() override;

  signals:
    void DblClick();
    /// @p key: 13 Enter, 27 Esc.
    void KeyUp(int key);
    void Resize();

  protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

  private:
    enum class Focus { canvas, text };

    void standAt(QWidget& floating, const QRect& where, bool visible);
    void press(const drawing::PointerEvent& event);
    bool isDrag(const drawing::PointerEvent& event) const;

    PaintSurfaceWidget* m_selection;
    TextToolBox* m_textBox;
    std::array<PointerArea*, 4> m_handles;
    /// Where the focus goes when the press that is being handled is done.
    Focus m_focusAfterPress = Focus::canvas;
    bool m_pressing = false;
    /// The second press of a double click and what the pointer did since, while it isn't a drag.
    std::vector<drawing::PointerEvent> m_secondPress;
};

} // namespace quillora::forms
