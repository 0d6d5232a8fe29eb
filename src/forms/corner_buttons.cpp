#include "forms/corner_buttons.h"

#include "forms/command_button.h"
#include "forms/look.h"

#include <QPainter>

namespace quillora::forms {

namespace {

struct Corner {
    const char* name;
    const char* spokenName;
    base::Twips left;
    base::Twips top;
    void (CornerButtons::*click)();
};

constexpr base::Twips kSide{255};
constexpr base::Twips kWidth{855};
constexpr base::Twips kHeight{585};

constexpr Corner kCorners[] = {
    {"Picture17", "Camera in the top left corner", {50}, {30}, &CornerButtons::Picture17_Click},
    {"Picture21", "Camera in the top right corner", {550}, {30}, &CornerButtons::Picture21_Click},
    {"Picture22", "Camera in the bottom left corner", {50}, {300}, &CornerButtons::Picture22_Click},
    {"Picture23", "Camera in the bottom right corner", {550}, {300}, &CornerButtons::Picture23_Click},
};

/// A square that stands for the camera in its corner.
class CornerButton : public CommandButton {
  public:
    CornerButton(const QString& spokenName, QWidget* parent)
        : CommandButton(Face::iconOnly, QStringLiteral("camera"), {}, spokenName, parent)
    {
        setToolTip(spokenName);
    }

  protected:
    void paintEvent(QPaintEvent*) override
    {
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        const bool marked = hasFocus() || underMouse() || isDown();
        painter.setPen(QPen(marked ? colours::kAccent : colours::kMutedText, hasFocus() ? 2 : 1.2));
        painter.setBrush(isDown() || underMouse() ? QColor(0xD5, 0xE2, 0xF5) : colours::kSurface);
        painter.drawRoundedRect(QRectF(rect()).adjusted(1.5, 3, -1.5, -3), 2, 2);
    }
};

} // namespace

CornerButtons::CornerButtons(QWidget* parent) : QWidget(parent)
{
    setObjectName("campos_pic");
    setAccessibleName(tr("Camera in a corner"));
    setFixedSize(pixels(kWidth), pixels(kHeight));
    for (const Corner& corner : kCorners) {
        auto* button = new CornerButton(tr(corner.spokenName), this);
        button->setObjectName(corner.name);
        button->setGeometry(pixels(corner.left), pixels(corner.top), pixels(kSide), pixels(kSide));
        connect(button, &QToolButton::clicked, this, corner.click);
    }
}

void CornerButtons::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(QColor(0x33, 0x40, 0x4F), 1.6));
    painter.setBrush(QColor(0xDB, 0xE7, 0xF8));
    painter.drawRoundedRect(QRectF(rect()).adjusted(0.8, 0.8, -0.8, -0.8), 3, 3);
}

} // namespace quillora::forms
