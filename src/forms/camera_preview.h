#pragma once

#include "stage/newest_frame.h"

#include <QElapsedTimer>
#include <QWidget>

namespace quillora::forms {

/// `VideoCap1_back`, the surface that shows the live picture of the camera; black while there is none. The
/// whole picture is shown in its own shape, in the middle of what can be seen of the surface: cut to it the
/// picture could lose what a presenter holds up to the camera, and stretched it would make faces wide. Hidden
/// for more than a moment, it begins anew with the next picture.
class CameraPreview : public QWidget {
    Q_OBJECT

  public:
    explicit CameraPreview(QWidget* parent);

    /// From now on the pictures of @p frames are shown, which must outlive the widget. Once at most.
    void showPicturesOf(stage::NewestFrame& frames);

  protected:
    void paintEvent(QPaintEvent* event) override;
    void moveEvent(QMoveEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;

  private:
    void takeNewest();
    /// What the stage's edge leaves of the surface.
    QRect seen() const;
    void tellRoom();
    /// Where the picture stands, in pixels of the form.
    QRect place() const;

    stage::NewestFrame* m_frames = nullptr;
    stage::CameraFrame m_frame{};
    QElapsedTimer m_sinceHidden;
};

} // namespace quillora::forms
