#include "forms/mode_strip.h"

#include "forms/look.h"
#include "forms/mode_button.h"

#include <QPainter>

namespace quillora::forms {

namespace {

constexpr int kCellWidth = 96;
constexpr int kIconHeight = 40;
constexpr int kCaptionHeight = 20;
constexpr int kCellHeight = kIconHeight + kCaptionHeight;

/// A caption that can be clicked. The button above it is what the keyboard reaches.
class ClickableCaption : public QAbstractButton {
  public:
    using QAbstractButton::QAbstractButton;

  protected:
    void paintEvent(QPaintEvent*) override
    {
        QPainter painter(this);
        painter.setPen(colours::kText);
        painter.drawText(rect(), Qt::AlignHCenter | Qt::AlignTop, text());
    }
};

} // namespace

ModeStrip::ModeStrip(QWidget* parent) : QWidget(parent)
{
    setObjectName("Picture_cont1");
    setAccessibleName(tr("Window mode"));
    setFixedSize(3 * kCellWidth, kCellHeight);

    auto* full = new ModeButton("Picture26", "mode_full", tr("Full"), tr("Media alone"), this);
    full->setGeometry(0, 0, kCellWidth, kCellHeight);
    connect(full, &QToolButton::clicked, this, &ModeStrip::Picture26_Click);

    auto* camera = new ModeButton("Picture19", "mode_fullcam", tr("Camera"), tr("Camera alone"), this);
    camera->setGeometry(kCellWidth, 0, kCellWidth, kCellHeight);
    connect(camera, &QToolButton::clicked, this, &ModeStrip::Picture19_Click);

    makeSideBySide();
}

void ModeStrip::makeSideBySide()
{
    auto* button = new ModeButton("Picture24", "mode_side", {}, tr("Media and camera side by side"), this);
    button->setGeometry(2 * kCellWidth, 0, kCellWidth, kIconHeight);
    connect(button, &QToolButton::clicked, this, &ModeStrip::Picture24_Click);

    auto* caption = new ClickableCaption(this);
    caption->setObjectName("Picture4");
    caption->setText(tr("Side by side"));
    caption->setAccessibleName(caption->text());
    caption->setFocusPolicy(Qt::NoFocus);
    caption->setGeometry(2 * kCellWidth, kIconHeight, kCellWidth, kCaptionHeight);
    connect(caption, &QAbstractButton::clicked, this, &ModeStrip::Picture4_Click);

    auto* corner = new ClickableCaption(caption);
    corner->setObjectName("Picture16");
    corner->setAccessibleName(tr("Camera in the bottom left corner"));
    corner->setFocusPolicy(Qt::NoFocus);
    corner->setGeometry(0, kCaptionHeight, kCellWidth, kCaptionHeight);
    connect(corner, &QAbstractButton::clicked, this, &ModeStrip::Picture16_Click);
}

} // namespace quillora::forms
