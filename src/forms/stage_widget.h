#pragma once

#include <QWidget>

class QPushButton;

namespace quillora::forms {

class ImageSurfaceWidget;
class SlidePanelWidget;

/// The stage `Picture1` with its stacked surfaces: what lies inside it is recorded, pixel for pixel, so
/// nothing here draws a border, a focus mark or anything else that is not the lecture's. Later media are
/// further surfaces between changeback_btn, the lowest, and the camera, the highest.
class StageWidget : public QWidget {
    Q_OBJECT

  public:
    explicit StageWidget(QWidget* parent);

    SlidePanelWidget& slide_img_back() { return *m_slideBack; }
    ImageSurfaceWidget& slide_img() { return *m_slide; }

    void setChangeBackVisible(bool visible);

  signals:
    void Image1_Click();

  private:
    QPushButton* m_changeBack;
    SlidePanelWidget* m_slideBack;
    ImageSurfaceWidget* m_slide;
};

} // namespace quillora::forms
