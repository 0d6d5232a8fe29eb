#pragma once

#include <QRadioButton>

namespace quillora::forms {

/// One of a group of choices in a panel. As with the other commands of the window, a click leaves the
/// keyboard's focus on the stage; and while Tab brought the focus here, Space and the arrow keys choose
/// rather than turn to another slide.
class OptionButton : public QRadioButton {
    Q_OBJECT

  public:
    OptionButton(const QString& caption, const QString& spokenName, QWidget* parent);

  protected:
    bool event(QEvent* event) override;
};

} // namespace quillora::forms
