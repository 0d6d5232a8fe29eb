#include "forms/stage_widget.h"

#include "forms/backdrop_widget.h"
#include "forms/camera_off_picture.h"
#include "forms/camera_preview.h"
#include "forms/image_surface_widget.h"
#include "forms/look.h"
#include "forms/paint_canvas_widget.h"
#include "forms/start_button_area.h"
#include "forms/text_board_widget.h"
#include "forms/web_browser_widget.h"
#include "forms/widget_surface.h"
#include "stage/stage_surfaces.h"

#include <QPushButton>

namespace quillora::forms {

namespace {

using AtFirst = WidgetSurface::AtFirst;

constexpr base::TwipRectangle kWholeStage{{0}, {0}, base::kStageWidth, base::kStageHeight};
constexpr base::TwipRectangle kCameraOffPlace{{4680}, {2400}, {1755}, {1350}};
constexpr base::TwipRectangle kCameraOffSmallPlace{{9425}, {790}, {750}, {570}};

QWidget* named(QWidget* widget, const char* name, const QString& spokenName)
{
    widget->setObjectName(name);
    widget->setAccessibleName(spokenName);
    return widget;
}

} // namespace

/// The surfaces as the layouts know them.
struct StageWidget::Places {
    explicit Places(StageWidget& stage)
        : WebBrowser2(*stage.m_WebBrowser2, kWholeStage, AtFirst::hidden),
          WebBrowser1(*stage.m_WebBrowser1, kWholeStage, AtFirst::hidden),
          picPaint(*stage.m_picPaint, kWholeStage, AtFirst::hidden),
          textBoard_txt(*stage.m_textBoard, kWholeStage, AtFirst::hidden),
          slide_img_back(*stage.m_slideBack, kWholeStage, AtFirst::shown),
          slide_img(*stage.m_slide, kWholeStage, AtFirst::shown),
          VideoCap1_back(*stage.m_camera, kWholeStage, AtFirst::hidden),
          cam_icon_trans(*stage.m_cameraOff, kCameraOffPlace, AtFirst::hidden),
          cam_icon_trans_s(*stage.m_cameraOffSmall, kCameraOffSmallPlace, AtFirst::hidden)
    {}

    WidgetSurface WebBrowser2;
    WidgetSurface WebBrowser1;
    WidgetSurface picPaint;
    WidgetSurface textBoard_txt;
    WidgetSurface slide_img_back;
    WidgetSurface slide_img;
    WidgetSurface VideoCap1_back;
    WidgetSurface cam_icon_trans;
    WidgetSurface cam_icon_trans_s;
    stage::StageSurfaces all{WebBrowser2, WebBrowser1,    picPaint,       textBoard_txt,   slide_img_back,
                             slide_img,   VideoCap1_back, cam_icon_trans, cam_icon_trans_s};
};

StageWidget::StageWidget(QWidget* parent) : QWidget(parent)
{
    setObjectName("Picture1");
    setAccessibleName(tr("Stage"));
    setFixedSize(pixels(base::kStageWidth), pixels(base::kStageHeight));
    setFocusPolicy(Qt::StrongFocus);
    setAutoFillBackground(true);

    makeBackdrop();
    makeMedia();
    makeCamera();
    m_places = std::make_unique<Places>(*this);
}

StageWidget::~StageWidget() = default;

stage::StageSurfaces& StageWidget::surfaces() { return m_places->all; }

void StageWidget::makeBackdrop()
{
    m_backdrop = new BackdropWidget(this);
    m_backdrop->setGeometry(rect());

    m_changeBack = new QPushButton(tr("Change Background"), this);
    named(m_changeBack, "changeback_btn", tr("Change Background"));
    m_changeBack->setGeometry(pixels({8640}), pixels({5640}), pixels({2175}), pixels({495}));
    // It lies under the media in most modes; Tab must not lead to what can't be seen.
    m_changeBack->setFocusPolicy(Qt::NoFocus);
    m_changeBack->hide();
    connect(m_changeBack, &QPushButton::clicked, this, &StageWidget::changeback_btn_Click);
}

void StageWidget::makeMedia()
{
    m_WebBrowser2 = new WebBrowserWidget("WebBrowser2", tr("Online video"), this);
    m_WebBrowser1 = new WebBrowserWidget("WebBrowser1", tr("Web page"), this);
    m_picPaint = new PaintCanvasWidget(this);
    m_textBoard = new TextBoardWidget(this);

    m_slideBack = named(new QWidget(this), "slide_img_back", tr("Slide panel"));
    m_slide = new ImageSurfaceWidget(ImageSurfaceWidget::Display::actualSize, m_slideBack);
    named(m_slide, "slide_img", tr("Slide"));
    auto* image1 = new StartButtonArea(*m_slide);
    connect(image1, &QAbstractButton::clicked, this, &StageWidget::Image1_Click);
}

void StageWidget::makeCamera()
{
    m_camera = new CameraPreview(this);
    named(m_camera, "VideoCap1_back", tr("Camera"));
    m_cameraOff = new CameraOffPicture("cam_icon_trans", this);
    m_cameraOffSmall = new CameraOffPicture("cam_icon_trans_s", this);
}

void StageWidget::setChangeBackVisible(bool visible) { m_changeBack->setVisible(visible); }

} // namespace quillora::forms
