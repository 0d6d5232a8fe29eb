// Random streams of operations on a raster surface: no sanitizer may speak, no rectangle may be told that
// leaves the surface, and no pixel may have a bit beyond its three channels.

#include "drawing/surface.h"
#include "tests/fuzz/fuzz_input.h"

#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

using namespace quillora;
using namespace quillora::drawing;
using quillora::tests::FuzzInput;

namespace {

void require(bool holds, const char* what)
{
    if (holds)
        return;
    std::fprintf(stderr, "surface_fuzz: %s\n", what);
    std::abort();
}

class Screen : public SurfaceScreen {
  public:
    void show(const base::PixelRectangle& changed) override
    {
        require(!changed.empty(), "an empty rectangle was told");
        require(base::intersection(changed, bounds) == changed, "a rectangle beyond the surface was told");
    }
    void refresh() override {}

    base::PixelRectangle bounds;
};

/// A text of any size, even none that makes sense.
class Rasteriser : public TextRasteriser {
  public:
    TextSize measure(const TextFont&, std::string_view) override { return size; }
    void rasterise(const TextFont&, std::string_view, const base::PixelRectangle& part,
                   std::span<std::uint8_t> coverage) override
    {
        require(base::intersection({0, 0, size.width, size.height}, part) == part, "a part beyond the text");
        for (std::uint8_t& pixel : coverage)
            pixel = ink++;
    }

    TextSize size;
    std::uint8_t ink = 0;
};

void setProperties(Surface& surface, FuzzInput& input)
{
    surface.DrawMode = input.choice(2) == 0 ? RasterOperation::xorPen : RasterOperation::copyPen;
    surface.DrawStyle = input.choice(4) == 0 ? PenStyle::dotted : PenStyle::solid;
    surface.FillStyle = input.choice(2) == 0 ? FillPattern::solid : FillPattern::transparent;
    surface.DrawWidth = input.choice(8) == 0 ? input.number() : input.choice(12);
    surface.ForeColor = static_cast<Colour>(input.number());
    surface.FillColor = static_cast<Colour>(input.number());
    surface.ScaleMode = input.choice(8) == 0 ? ScaleUnit::twips : ScaleUnit::pixels;
}

base::PixelPoint point(FuzzInput& input) { return {input.number(), input.number()}; }

void drawAsSurface(Surface& surface, Rasteriser& text, FuzzInput& input)
{
    switch (input.choice(9)) {
    case 0:
        return surface.Line(input.real(), input.real(), input.real(), input.real());
    case 1:
        return surface.Line(input.real(), input.real(), input.real(), input.real(), LineForm::box,
                            static_cast<Colour>(input.number()));
    case 2:
        return surface.Line(input.real(), input.real(), input.real(), input.real(), LineForm::filledBox);
    case 3:
        return surface.Circle(input.real(), input.real(), input.real(), input.byte() / 32.0);
    case 4:
        return surface.Circle(input.real(), input.real(), input.real(), input.real());
    case 5:
        return surface.PSet(input.real(), input.real());
    case 6: {
        const RasterImage picture(input.choice(40), input.choice(40), 0x123456);
        return surface.PaintPicture(
            picture, input.real(), input.real(),
            base::PixelRectangle{input.number(), input.number(), input.number(), input.number()});
    }
    case 7:
        return surface.PaintPicture(surface.Image(), input.real(), input.real());
    default:
        surface.CurrentX = input.real();
        surface.CurrentY = input.real();
        text.size = {input.number(), input.number()};
        return surface.Print("text");
    }
}

void drawThroughDevice(Surface& surface, FuzzInput& input)
{
    switch (input.choice(5)) {
    case 0: {
        const base::PixelPoint start = point(input);
        return surface.ExtFloodFill(start.x, start.y, surface.GetPixel(start.x, start.y));
    }
    case 1:
        return surface.RoundRect(input.number(), input.number(), input.number(), input.number(),
                                 input.number(), input.number());
    case 2: {
        std::vector<base::PixelPoint> points;
        for (int count = input.choice(12); count > 0; --count)
            points.push_back(point(input));
        return surface.Polygon(points);
    }
    case 3:
        return surface.PolyBezier({point(input), point(input), point(input), point(input)});
    default:
        return surface.SetPixel(input.number(), input.number(), static_cast<Colour>(input.number()));
    }
}

void changeWhole(Surface& surface, Screen& screen, FuzzInput& input)
{
    switch (input.choice(4)) {
    case 0:
        return surface.Cls();
    case 1:
        return surface.setPicture(RasterImage(input.choice(200), input.choice(200), 0xABCDEF));
    case 2:
        return surface.Refresh();
    default:
        const int width = input.choice(200);
        const int height = input.choice(150) - 2;
        screen.bounds = RasterImage(width, height).bounds();
        return surface.resize(width, height);
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    FuzzInput input(data, size);
    Screen screen;
    Rasteriser text;
    const int width = input.choice(200);
    const int height = input.choice(150);
    screen.bounds = RasterImage(width, height).bounds();
    Surface surface(width, height, static_cast<Colour>(input.number()), &screen, &text);
    while (!input.atEnd()) {
        const int kind = input.choice(16);
        if (kind < 4)
            setProperties(surface, input);
        else if (kind < 10)
            drawAsSurface(surface, text, input);
        else if (kind < 15)
            drawThroughDevice(surface, input);
        else
            changeWhole(surface, screen, input);
    }
    surface.Refresh();
    for (int y = 0; y < surface.height(); ++y)
        for (const Colour pixel : surface.Image().row(y))
            require((pixel & ~kColourBits) == 0, "a pixel has a high byte");
    return 0;
}
