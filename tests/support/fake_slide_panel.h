#pragma once

#include "deck/slide_panel.h"

namespace quillora::tests {

/// The panel of the slide, filling the stage unless a test says otherwise.
class FakeSlidePanel : public deck::SlidePanel {
  public:
    base::Twips width = base::kStageWidth;
    base::Twips height = base::kStageHeight;
    bool visible = false;

    base::Twips Width() const override { return width; }
    base::Twips Height() const override { return height; }
    void setVisible(bool nowVisible) override { visible = nowVisible; }
};

} // namespace quillora::tests
