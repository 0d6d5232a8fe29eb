#pragma once

#include <QWidget>

#include <memory>

class QPushButton;

namespace quillora::stage {
struct StageSurfaces;
} // namespace quillora::stage

namespace quillora::forms {

class BackdropWidget;
class CameraPreview;
class ImageSurfaceWidget;
class PaintCanvasWidget;
class TextBoardWidget;
class WebBrowserWidget;

/// The stage `Picture1` with its stacked surfaces: what lies inside it is recorded, pixel for pixel, so
/// nothing here draws a border, a focus mark or anything else that is not the lecture's. The surfaces are
/// plain children, made in their stacking order; where and whether they show is the layout's business.
class StageWidget : public QWidget {
    Q_OBJECT

  public:
    explicit StageWidget(QWidget* parent);
    ~StageWidget() override;

    /// What the layouts move. Valid as long as the widget is.
    stage::StageSurfaces& surfaces();
    BackdropWidget& back_img() { return *m_backdrop; }
    ImageSurfaceWidget& slide_img() { return *m_slide; }
    TextBoardWidget& textBoard_txt() { return *m_textBoard; }
    WebBrowserWidget& WebBrowser1() { return *m_WebBrowser1; }
    WebBrowserWidget& WebBrowser2() { return *m_WebBrowser2; }
    PaintCanvasWidget& picPaint() { return *m_picPaint; }
    CameraPreview& VideoCap1_back() { return *m_camera; }

    void setChangeBackVisible(bool visible);

  signals:
    void Image1_Click();
    void changeback_btn_Click();

  private:
    struct Places;

    void makeBackdrop();
    void makeMedia();
    void makeCamera();

    BackdropWidget* m_backdrop;
    QPushButton* m_changeBack;
    WebBrowserWidget* m_WebBrowser2;
    WebBrowserWidget* m_WebBrowser1;
    PaintCanvasWidget* m_picPaint;
    TextBoardWidget* m_textBoard;
    QWidget* m_slideBack;
    ImageSurfaceWidget* m_slide;
    CameraPreview* m_camera;
    QWidget* m_cameraOff;
    QWidget* m_cameraOffSmall;
    std::unique_ptr<Places> m_places;
};

} // namespace quillora::forms
