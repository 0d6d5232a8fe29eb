#pragma once

#include "drawing/colour.h"

#include <QAbstractButton>

namespace quillora::forms {

/// A cell of the palette: a square that shows one colour. It takes the keyboard's focus from Tab only, so
/// that after a click the presenter's keys still go to the stage; Space then does what the pointer would.
class ColourCell : public QAbstractButton {
    Q_OBJECT

  public:
    enum class Answers {
        /// To a press of either button.
        press,
        /// To a double click, since a press alone means nothing.
        doubleClick,
    };

    ColourCell(Answers answers, QWidget* parent);

    void setColour(drawing::Colour colour);
    drawing::Colour colour() const { return m_colour; }

  signals:
    /// @p button: 1 left, 2 right.
    void MouseDown(int button);
    void DblClick();

  protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    bool event(QEvent* event) override;

  private:
    Answers m_answers;
    drawing::Colour m_colour = 0;
};

} // namespace quillora::forms
