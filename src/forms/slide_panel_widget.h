#pragma once

#include "deck/slide_panel.h"

#include <QWidget>

namespace quillora::forms {

/// The panel `slide_img_back`: the place and size that a layout gives to the slide, in twips.
class SlidePanelWidget : public QWidget, public deck::SlidePanel {
  public:
    explicit SlidePanelWidget(QWidget* parent);

    base::Twips Width() const override { return m_width; }
    base::Twips Height() const override { return m_height; }
    void setVisible(bool visible) override;

  private:
    base::Twips m_width = base::kStageWidth;
    base::Twips m_height = base::kStageHeight;
};

} // namespace quillora::forms
