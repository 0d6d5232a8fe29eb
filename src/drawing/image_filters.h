#pragma once

#include "drawing/random_numbers.h"
#include "drawing/raster_image.h"
#include "drawing/surface.h"

namespace quillora::drawing {

/// Columns and rows from x0, y0 to x1, y1, both ends in it.
struct FilterRectangle {
    int x0 = 0;
    int y0 = 0;
    int x1 = 0;
    int y1 = 0;

    bool operator==(const FilterRectangle&) const = default;
};

/// Stands for the whole surface. That is one column and one row more than it has: they read as kNoColour, and
/// what is written there is nothing.
inline constexpr FilterRectangle kWholeSurface{-1, -1, -1, -1};

/// The effects by their ids. Any other id, 9 among them, changes no pixel.
enum class Filter {
    blackAndWhite = 0,
    softBlur = 1,
    brighten = 2,
    scatterColumns = 3,
    darken = 4,
    diffuse = 5,
    emboss = 6,
    comicGrey = 7,
    grey = 8,
    replaceColour = 10,
    sharpen = 11,
    strongSharpen = 12,
    wave = 13,
};

/// The colours of Filter::replaceColour.
struct ColourReplacement {
    Colour replaceFrom = 0;
    Colour replaceWith = 0;
};

/// The channels of a colour as the filters reckon with them: kNoColour has -1, 0 and 0.
struct Channels {
    int red = 0;
    int green = 0;
    int blue = 0;

    constexpr bool operator==(const Channels&) const = default;
};

/// Divides by 256 as a signed number, so that kNoColour splits as it does everywhere in the engine.
constexpr Channels SplitColor(Colour colour)
{
    const auto number = static_cast<std::int32_t>(colour);
    return {number % 256, number / 256 % 256, number / 65536};
}

/// A library of thirteen effects on the pixels of a surface.
class ImageFilters {
  public:
    /// @p random must outlive this object.
    explicit ImageFilters(RandomNumbers& random) : m_random(random) {}

    ColourReplacement replacement;

    /// Applies effect number @p filter. An area of 256 pixels and more shows its progress column by column.
    ///
    /// Throws std::out_of_range where an effect that reads its neighbourhood is given a column or row below
    /// 0, and std::overflow_error where the comic grey meets a pixel too bright for its 16-bit integers; the
    /// columns before that pixel are done then. After either, DrawMode stays at copy pen.
    void ApplyFilter(int filter, Surface& surface, FilterRectangle rectangle);

    /// The work of ApplyFilter on a picture that nobody watches. Throws as it does.
    void applyUnseen(int filter, RasterImage& picture, FilterRectangle rectangle);

  private:
    void applyColumnByColumn(int filter, Surface& surface, const FilterRectangle& rectangle);

    RandomNumbers& m_random;
};

} // namespace quillora::drawing
