#pragma once

#include "drawing/drawing_canvas.h"

#include <QLineEdit>

namespace quillora::forms {

/// The text box `txtText`, in which the Text tool's words are typed where they will stand. It shows no frame,
/// since it stands on the stage.
class TextToolBox : public QLineEdit {
    Q_OBJECT

  public:
    explicit TextToolBox(QWidget* parent);

    /// Takes on the box's words and look. Its place is for the canvas to give.
    void showState(const drawing::DrawingTextBox& box);
    /// In pixels of the canvas.
    static QRect placeOf(const drawing::DrawingTextBox& box);

    /// A press on the canvas takes the focus before it is handled, and the words may be told so only after
    /// it: the canvas calls this then. Nothing where the focus did not go that way.
    void tellOfPressOnCanvas();

  signals:
    /// Before the key does its work, and after. @p key: 13 Enter, 27 Esc.
    void KeyDown(int key);
    void KeyUp(int key);
    void DblClick();
    /// Not when another window comes to the front: the words wait for the presenter's return.
    void LostFocus();

  protected:
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

  private:
    bool m_leftByPressOnCanvas = false;
};

} // namespace quillora::forms
