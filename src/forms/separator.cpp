#include "forms/separator.h"

#include <QFrame>

namespace quillora::forms {

QWidget* makeSeparator(int height, QWidget* parent)
{
    auto* line = new QFrame(parent);
    line->setProperty("kind", "separator");
    line->setAccessibleName(QFrame::tr("Separator"));
    line->setFixedSize(1, height);
    return line;
}

} // namespace quillora::forms
