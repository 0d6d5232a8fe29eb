#include "deck/slide_ink.h"

#include "base/skip_failures.h"

#include <algorithm>
#include <iterator>

namespace quillora::deck {

using base::skipFailures;

namespace {

constexpr int kToolbarPenWidth = 2;
constexpr int kArrowOption = 13;

struct Pen {
    std::string_view key;
    int option;
    base::Colour colour;
};

constexpr Pen kPens[] = {
    {"black", 7, base::rgb(0, 0, 0)},
    {"blue", 8, base::rgb(0, 0, 255)},
    {"red", 9, base::rgb(255, 0, 0)},
};

struct Width {
    int option;
    int pixels;
};

constexpr Width kWidths[] = {{10, 1}, {11, 4}, {12, 7}};

} // namespace

void SlideInk::pens_TB_ButtonClick(std::string_view key)
{
    skipFailures([&] {
        m_ports.slide_img.setPenWidth(kToolbarPenWidth);
        if (key == "arrow") {
            m_ports.window.setStagePointer({});
            m_ports.pen.penMode = SlidePen::kArrow;
        } else if (key == "eraser") {
            m_ports.viewer.Command10_Click();
        } else if (const auto pen = std::ranges::find(kPens, key, &Pen::key); pen != std::end(kPens)) {
            showPen(pen->colour);
            m_ports.pen.penMode = SlidePen::kPen;
        }
    });
}

void SlideInk::Option_Click(int number)
{
    skipFailures([&] {
        if (number == kArrowOption)
            m_ports.window.setStagePointer({});
        else if (const auto pen = std::ranges::find(kPens, number, &Pen::option); pen != std::end(kPens))
            showPen(pen->colour);
        else if (const auto width = std::ranges::find(kWidths, number, &Width::option);
                 width != std::end(kWidths))
            m_ports.slide_img.setPenWidth(width->pixels);
    });
}

void SlideInk::showPen(base::Colour colour)
{
    m_ports.window.setStagePointer(m_ports.assets / "draw.cur");
    m_ports.slide_img.setPenColor(colour);
}

void SlideInk::Command10_Click() { m_ports.viewer.Command10_Click(); }

} // namespace quillora::deck
