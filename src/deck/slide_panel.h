#pragma once

#include "base/twips.h"

namespace quillora::deck {

/// The size that the panel `slide_img_back` gives to the slide on the stage.
class SlidePanel {
  public:
    virtual ~SlidePanel() = default;
    virtual base::Twips Width() const = 0;
    virtual base::Twips Height() const = 0;
};

} // namespace quillora::deck
