#pragma once

#include "deck/slide_panel.h"
#include "stage/stage_surface.h"

namespace quillora::stage {

/// The slide's panel as the slide viewer knows it: a surface of the stage like others.
class SlidePlace : public deck::SlidePanel {
  public:
    /// @p slide_img_back must outlive this object.
    explicit SlidePlace(const StageSurface& slide_img_back) : m_surface(slide_img_back) {}

    base::Twips Width() const override { return m_surface.rectangle().width; }
    base::Twips Height() const override { return m_surface.rectangle().height; }

  private:
    const StageSurface& m_surface;
};

} // namespace quillora::stage
