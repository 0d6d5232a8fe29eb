#pragma once

#include "forms/command_button.h"

namespace quillora::forms {

/// The header of a bar of the task pane: icon, caption, and an arrow that tells whether the bar is open. It
/// is checked while the bar is open, which is also what a screen reader says of it.
class BarHeader : public CommandButton {
  public:
    BarHeader(const QString& iconName, const QString& caption, QWidget* parent);

    QSize sizeHint() const override;

  protected:
    void paintEvent(QPaintEvent* event) override;
};

} // namespace quillora::forms
