#pragma once

#include "base/colour.h"

#include <QAbstractButton>

namespace quillora::forms {

/// A small field of one colour to click on. Like the window's other buttons it takes the keyboard's focus
/// from Tab only, and then Space presses it.
class ColourSwatch : public QAbstractButton {
    Q_OBJECT

  public:
    ColourSwatch(base::Colour colour, const QString& spokenName, QWidget* parent);

    base::Colour BackColor() const { return m_colour; }

  protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

  private:
    base::Colour m_colour;
};

} // namespace quillora::forms
