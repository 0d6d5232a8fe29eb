#pragma once

#include "forms/command_button.h"

namespace quillora::forms {

/// A button of the mode strip: a picture of the stage in this mode, and below it the caption, if any.
class ModeButton : public CommandButton {
  public:
    ModeButton(const char* name, const QString& iconName, const QString& caption, const QString& spokenName,
               QWidget* parent);

    QSize sizeHint() const override { return QToolButton::sizeHint(); }
};

} // namespace quillora::forms
