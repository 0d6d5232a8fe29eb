#include "forms/stage_widget.h"

#include "forms/image_surface_widget.h"
#include "forms/look.h"
#include "forms/slide_panel_widget.h"

#include <QAbstractButton>
#include <QPushButton>

namespace quillora::forms {

namespace {

/// The picture that stands on the stage before the first deck; it has a button drawn in it.
constexpr const char* kStartPicture = "PPT.png";
/// Where that button is, in pixels of the stage; see tools/draw_assets.py.
constexpr QRect kDrawnButton{266, 286, 215, 52};

/// `Image1`: a place to click that shows nothing of its own, so that the stage's pixels stay the picture's.
class ClickArea : public QAbstractButton {
  public:
    using QAbstractButton::QAbstractButton;

  protected:
    void paintEvent(QPaintEvent*) override {}
};

} // namespace

StageWidget::StageWidget(QWidget* parent) : QWidget(parent)
{
    setObjectName("Picture1");
    setAccessibleName(tr("Stage"));
    setFixedSize(pixels(base::kStageWidth), pixels(base::kStageHeight));
    setFocusPolicy(Qt::StrongFocus);
    setAutoFillBackground(true);

    m_changeBack = new QPushButton(tr("Change Background"), this);
    m_changeBack->setObjectName("changeback_btn");
    m_changeBack->setAccessibleName(tr("Change Background"));
    m_changeBack->setGeometry(pixels({8640}), pixels({5640}), pixels({2175}), pixels({495}));
    // It lies under the media in most modes; Tab must not lead to what can't be seen.
    m_changeBack->setFocusPolicy(Qt::NoFocus);
    m_changeBack->hide();

    m_slideBack = new SlidePanelWidget(this);

    m_slide = new ImageSurfaceWidget(ImageSurfaceWidget::Display::actualSize, m_slideBack);
    m_slide->setObjectName("slide_img");
    m_slide->setAccessibleName(tr("Slide"));
    m_slide->setGeometry(m_slideBack->rect());

    auto* image1 = new ClickArea(this);
    image1->setObjectName("Image1");
    image1->setAccessibleName(tr("Open a slide deck"));
    image1->setGeometry(kDrawnButton);
    image1->setCursor(Qt::PointingHandCursor);
    image1->setFocusPolicy(Qt::NoFocus);
    image1->hide();
    connect(image1, &QAbstractButton::clicked, this, &StageWidget::Image1_Click);
    connect(m_slide, &ImageSurfaceWidget::pictureLoaded, image1,
            [image1](const std::filesystem::path& picture) {
                image1->setVisible(picture.filename() == kStartPicture);
            });
}

void StageWidget::setChangeBackVisible(bool visible) { m_changeBack->setVisible(visible); }

} // namespace quillora::forms
