#pragma once

#include "deck/slide_ink.h"

namespace quillora::forms {
class Vantry_frm;
} // namespace quillora::forms

namespace quillora::app {

/// The pens for the slide on the stage: their logic, and what connects the controls of the notes panel to it.
class SlideInkParts {
  public:
    struct Ports {
        forms::Vantry_frm& window;
        deck::SlidePen& pen;
        deck::SlideViewer& viewer;
        std::filesystem::path assets;
    };
    /// What the ports refer to must outlive this object.
    explicit SlideInkParts(const Ports& ports);
    SlideInkParts(const SlideInkParts&) = delete;
    SlideInkParts& operator=(const SlideInkParts&) = delete;

  private:
    deck::SlideInk m_ink;
};

} // namespace quillora::app
