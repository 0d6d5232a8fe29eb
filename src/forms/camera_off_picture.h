#pragma once

#include <QWidget>

namespace quillora::forms {

/// A transparent picture that stands on the camera's black frame while there is no camera. Clicks go through.
class CameraOffPicture : public QWidget {
  public:
    CameraOffPicture(const char* name, QWidget* parent);

  protected:
    void paintEvent(QPaintEvent* event) override;
};

} // namespace quillora::forms
