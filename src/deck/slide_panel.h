#pragma once

#include "base/twips.h"

namespace quillora::deck {

/// The panel `slide_img_back` that gives the slide its place and size on the stage.
class SlidePanel {
  public:
    virtual ~SlidePanel() = default;
    virtual base::Twips Width() const = 0;
    virtual base::Twips Height() const = 0;
    virtual void setVisible(bool visible) = 0;
};

} // namespace quillora::deck
