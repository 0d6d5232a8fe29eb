#pragma once

#include "deck/slide_panel.h"

namespace quillora::tests {

/// The panel of the slide, filling the stage unless a test says otherwise.
class FakeSlidePanel : public deck::SlidePanel {
  public:
    base::Twips width = base::kStageWidth;
    base::Twips height = base::kStageHeight;

    base::Twips Width() const override { return width; }
    base::Twips Height() const override { return height; }
};

} // namespace quillora::tests
