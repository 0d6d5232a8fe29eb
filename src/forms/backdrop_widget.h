#pragma once

#include "stage/backdrop.h"

#include <QImage>
#include <QWidget>

namespace quillora::forms {

/// `back_img`: the backdrop, stretched over the whole stage. Until another one is chosen it is the picture of
/// the design, which is read when it is first seen.
class BackdropWidget : public QWidget, public stage::BackdropPicture {
  public:
    explicit BackdropWidget(QWidget* parent);

    void load(const std::filesystem::path& picture) override;

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    QImage m_picture;
    /// In the pixels of the display; made when it is painted.
    QImage m_stretched;
};

} // namespace quillora::forms
