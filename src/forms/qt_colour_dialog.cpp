#include "forms/qt_colour_dialog.h"

#include "forms/form_colour.h"

#include <QColorDialog>

namespace quillora::forms {

void QtColourDialog::ShowColor()
{
    QColorDialog dialog(toQColor(Color), &m_owner);
    dialog.setObjectName("cdlColor");
    dialog.setWindowTitle(QColorDialog::tr("Colour"));
    dialog.setOption(QColorDialog::DontUseNativeDialog);
    if (dialog.exec() == QDialog::Accepted)
        Color = toColour(dialog.currentColor());
}

} // namespace quillora::forms
