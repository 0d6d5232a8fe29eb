#include "forms/camera_off_picture.h"

#include "forms/look.h"

#include <QPainter>

namespace quillora::forms {

CameraOffPicture::CameraOffPicture(const char* name, QWidget* parent) : QWidget(parent)
{
    setObjectName(name);
    setAccessibleName(tr("The camera is off"));
    setAttribute(Qt::WA_TransparentForMouseEvents);
}

void CameraOffPicture::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    drawnIcon(QStringLiteral("camera_off")).paint(&painter, rect());
}

} // namespace quillora::forms
