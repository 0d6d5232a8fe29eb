#include "forms/mode_button.h"

namespace quillora::forms {

ModeButton::ModeButton(const char* name, const QString& iconName, const QString& caption,
                       const QString& spokenName, QWidget* parent)
    : CommandButton(caption.isEmpty() ? Face::iconOnly : Face::iconAndCaption, iconName, caption, spokenName,
                    parent)
{
    setObjectName(name);
    setToolTip(spokenName);
    setIconSize({44, 33});
    if (!caption.isEmpty())
        setToolButtonStyle(Qt::ToolButtonTextUnderIcon);
}

} // namespace quillora::forms
