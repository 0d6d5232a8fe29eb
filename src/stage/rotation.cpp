#include "stage/rotation.h"

#include "base/rounding.h"
#include "base/skip_failures.h"

namespace quillora::stage {

using base::skipFailures;

namespace {

/// What the slide leaves to the camera, wherever it was.
constexpr RotateRectangle kLargeArea{.top = 2160, .left = 3000, .height = 6645, .width = 8745};

base::TwipRectangle placeOf(const RotateRectangle& stored)
{
    const auto twips = [](double length) { return base::Twips{base::roundToInt(length)}; };
    return {twips(stored.left), twips(stored.top), twips(stored.width), twips(stored.height)};
}

RotateRectangle stored(const base::TwipRectangle& place)
{
    return {.top = double(place.top.value),
            .left = double(place.left.value),
            .height = double(place.height.value),
            .width = double(place.width.value)};
}

} // namespace

void Rotation::RotatePPT()
{
    auto& fields = m_ports.fields;
    auto& on = m_ports.surfaces;
    skipFailures([&] { on.slide_img.move(placeOf(fields.rotateSlide)); },
                 [&] { on.VideoCap1_back.move(placeOf(fields.rotateCam)); },
                 [&] { fields.slideNow_txt = fields.slide_txt; });
}

void Rotation::RotatePPTCAM()
{
    auto& fields = m_ports.fields;
    auto& on = m_ports.surfaces;
    exchange();
    skipFailures([&] { on.VideoCap1_back.move(placeOf(fields.rotateSlide)); },
                 [&] { on.slide_img_back.move(placeOf(fields.rotateCam)); });
}

void Rotation::RotatePPTDRAW()
{
    exchange();
    placeSlide(m_ports.fields.rotateDraw);
}

void Rotation::RotatePPTWHITEBOARD()
{
    exchange();
    placeSlide(m_ports.fields.rotateWhiteboard);
}

void Rotation::exchange()
{
    auto& fields = m_ports.fields;
    auto& on = m_ports.surfaces;
    placeSlide(fields.rotateSlide);
    skipFailures([&] { on.VideoCap1_back.move(placeOf(fields.rotateCam)); },
                 [&] { fields.rotateCam = stored(on.VideoCap1_back.rectangle()); },
                 [&] { fields.rotateSlide = kLargeArea; }, [&] { fields.slideNow_txt = fields.slide_txt; });
}

void Rotation::placeSlide(const RotateRectangle& place)
{
    auto& on = m_ports.surfaces;
    skipFailures([&] { on.slide_img.move(placeOf(place)); }, [&] { on.slide_img_back.move(placeOf(place)); });
}

} // namespace quillora::stage
