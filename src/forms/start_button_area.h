#pragma once

#include <QAbstractButton>

namespace quillora::forms {

class ImageSurfaceWidget;

/// `Image1`: the place to click over the button that is drawn in the start picture. It shows nothing of its
/// own, so that the stage's pixels stay the picture's, and it goes with the slide that it lies in.
class StartButtonArea : public QAbstractButton {
    Q_OBJECT

  public:
    explicit StartButtonArea(ImageSurfaceWidget& slide);

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void paintEvent(QPaintEvent*) override {}

  private:
    void followSlide();
};

} // namespace quillora::forms
