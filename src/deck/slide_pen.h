#pragma once

#include "deck/image_surface.h"

#include <cstdint>
#include <string>

namespace quillora::deck {

/// The pointer on the slide: under a pen it leaves lines in the picture itself, so any reload wipes them.
/// Coordinates are those of the image surface's events, in pixels of the picture.
class SlidePen {
  public:
    static constexpr int kArrow = 0;
    static constexpr int kPen = 1;
    /// Button value of the left button, the only one that counts.
    static constexpr int kLeftButton = 1;

    /// @p slide_img must outlive this object.
    explicit SlidePen(ImageSurface& slide_img) : m_slide_img(slide_img) {}

    /// Lines are drawn at kPen only.
    int penMode = kArrow;

    void slide_img_MouseDown(int button, int shift, float x, float y);
    /// Never throws: a line that can't be drawn is left out.
    void slide_img_MouseMove(int button, int shift, float x, float y);
    void slide_img_MouseUp(int button, int shift, float x, float y);

  private:
    ImageSurface& m_slide_img;
    std::string m_mouse_lb = "up";
    std::int16_t m_lastPenX = 0;
    std::int16_t m_lastPenY = 0;
    std::int16_t m_curPenX = 0;
    std::int16_t m_curPenY = 0;
};

} // namespace quillora::deck
