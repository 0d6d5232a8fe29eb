#include "forms/start_button_area.h"

#include "forms/image_surface_widget.h"
#include "forms/look.h"

#include <QEvent>

namespace quillora::forms {

namespace {

/// The picture that stands on the stage before the first deck.
constexpr const char* kStartPicture = "PPT.png";
/// Where the button is drawn in it, in pixels of the whole stage; see tools/draw_assets.py.
constexpr QRect kDrawnButton{266, 286, 215, 52};

} // namespace

StartButtonArea::StartButtonArea(ImageSurfaceWidget& slide) : QAbstractButton(&slide)
{
    setObjectName("Image1");
    setAccessibleName(tr("Open a slide deck"));
    setCursor(Qt::PointingHandCursor);
    setFocusPolicy(Qt::NoFocus);
    hide();
    followSlide();
    slide.installEventFilter(this);
    connect(&slide, &ImageSurfaceWidget::pictureLoaded, this, [this](const std::filesystem::path& picture) {
        setVisible(picture.filename() == kStartPicture);
    });
}

bool StartButtonArea::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::Resize)
        followSlide();
    return QAbstractButton::eventFilter(watched, event);
}

/// The picture is stretched to the slide, and the drawn button with it.
void StartButtonArea::followSlide()
{
    const double across = double(parentWidget()->width()) / pixels(base::kStageWidth);
    const double down = double(parentWidget()->height()) / pixels(base::kStageHeight);
    setGeometry(QRectF(kDrawnButton.x() * across, kDrawnButton.y() * down, kDrawnButton.width() * across,
                       kDrawnButton.height() * down)
                    .toRect());
}

} // namespace quillora::forms
