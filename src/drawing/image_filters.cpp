#include "drawing/image_filters.h"

#include "base/rounding.h"
#include "drawing/filter_rows.h"
#include "drawing/pixel_rules.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cmath>
#include <cstdint>
#include <exception>
#include <stdexcept>
#include <variant>
#include <vector>

namespace quillora::drawing {
namespace {

/// Below this many pixels a filter counts as a brush's.
constexpr std::int64_t kSmallArea = 256;

/// The columns and rows that an effect sets, counted in 64 bits: a brush may stand at the end of the numbers.
struct Range {
    std::int64_t x0;
    std::int64_t y0;
    std::int64_t x1;
    std::int64_t y1;
};

/// What an effect on columns works with: the picture as it was, the picture that it changes, and chance.
struct ColumnWork {
    const RasterImage& before;
    RasterImage& picture;
    RandomNumbers& random;
};

using ColumnFilter = void (*)(ColumnWork& work, int x, const Range& range);

/// How an effect works, and how far from the rectangle's edges it begins and ends.
struct FilterDescription {
    std::variant<std::monostate, PixelRule, RowFilter, ColumnFilter> work{};
    int insetLow = 0;
    int insetHigh = 0;
    /// It reads the rectangle into an array first, whose indices begin at 0.
    bool readsArray = false;
};

Colour colourAt(const RasterImage& picture, std::int64_t x, std::int64_t y)
{
    if (x < 0 || y < 0 || x >= picture.width() || y >= picture.height())
        return kNoColour;
    return picture.at(static_cast<int>(x), static_cast<int>(y));
}

void setColour(RasterImage& picture, std::int64_t x, std::int64_t y, Colour colour)
{
    if (x >= 0 && y >= 0 && x < picture.width() && y < picture.height())
        picture.at(static_cast<int>(x), static_cast<int>(y)) = colour & kColourBits;
}

template <int amplitude>
void scatterColumn(ColumnWork& work, int x, const Range& range)
{
    // A row further below can't come back onto the picture.
    const auto last = std::min<std::int64_t>(range.y1, work.picture.height() + amplitude);
    const double shift = amplitude * std::sin(static_cast<double>(x));
    for (auto y = range.y0; y <= last; ++y) {
        setColour(work.picture, x, base::roundToInt(static_cast<double>(y) + shift),
                  colourAt(work.before, x, y));
    }
}

void diffuseColumn(ColumnWork& work, int x, const Range& range)
{
    const auto offset = [&work] { return static_cast<int>(std::floor(5 * work.random.next() - 2)); };
    const auto last = std::min<std::int64_t>(range.y1, work.picture.height() - 1);
    for (auto y = range.y0; y <= last; ++y) {
        const int red = SplitColor(colourAt(work.before, x, y + offset())).red;
        const int green = SplitColor(colourAt(work.before, x + offset(), y)).green;
        const int across = offset();
        const int blue = SplitColor(colourAt(work.before, x + across, y + offset())).blue;
        setColour(work.picture, x, y, heldColour(red, green, blue));
    }
}

void comicGreyColumn(ColumnWork& work, int x, const Range& range)
{
    const auto last = std::min<std::int64_t>(range.y1, work.picture.height() - 1);
    for (auto y = range.y0; y <= last; ++y)
        setColour(work.picture, x, y, comicGrey(colourAt(work.picture, x, y)));
}

FilterDescription describe(int filter)
{
    switch (static_cast<Filter>(filter)) {
    case Filter::blackAndWhite:
        return {PixelRule{blackAndWhiteRow}};
    case Filter::softBlur:
        return {RowFilter{softBlurRow}, 1, 1, true};
    case Filter::brighten:
        return {PixelRule{brightenRow}};
    case Filter::scatterColumns:
        return {ColumnFilter{scatterColumn<512>}, 0, 0, true};
    case Filter::darken:
        return {PixelRule{darkenRow}};
    case Filter::diffuse:
        return {ColumnFilter{diffuseColumn}, 2, 3, true};
    case Filter::emboss:
        return {RowFilter{embossRow}, 0, 1, true};
    case Filter::comicGrey:
        return {ColumnFilter{comicGreyColumn}};
    case Filter::grey:
        return {PixelRule{greyRow}};
    case Filter::replaceColour:
        return {PixelRule{replaceColourRow}};
    case Filter::sharpen:
        return {RowFilter{sharpenRow}, 1, 0, true};
    case Filter::strongSharpen:
        return {RowFilter{strongSharpenRow}, 1, 0, true};
    case Filter::wave:
        return {ColumnFilter{scatterColumn<4>}, 0, 0, true};
    }
    return {};
}

FilterRectangle resolved(const FilterRectangle& rectangle, int width, int height)
{
    return rectangle == kWholeSurface ? FilterRectangle{0, 0, width, height} : rectangle;
}

bool isSmall(const FilterRectangle& r)
{
    // As floating numbers: the product of two 33-bit numbers need not fit in 64 bits.
    return (static_cast<double>(r.y1) - r.y0) * (static_cast<double>(r.x1) - r.x0) < kSmallArea;
}

Range rangeOf(const FilterDescription& filter, const FilterRectangle& r)
{
    return {std::int64_t{r.x0} + filter.insetLow, std::int64_t{r.y0} + filter.insetLow,
            std::int64_t{r.x1} - filter.insetHigh, std::int64_t{r.y1} - filter.insetHigh};
}

/// What of the range lies on a picture of this size.
base::PixelRectangle onPicture(const Range& range, const base::PixelRectangle& bounds)
{
    const auto left = std::max<std::int64_t>(range.x0, 0);
    const auto top = std::max<std::int64_t>(range.y0, 0);
    const auto right = std::min(range.x1 + 1, bounds.right());
    const auto bottom = std::min(range.y1 + 1, bounds.bottom());
    if (right <= left || bottom <= top)
        return {};
    return {static_cast<int>(left), static_cast<int>(top), static_cast<int>(right - left),
            static_cast<int>(bottom - top)};
}

/// Where pixels may change. The effects that scatter throw them anywhere in their column.
base::PixelRectangle changedArea(int filter, const FilterRectangle& r, const base::PixelRectangle& bounds)
{
    const bool scatters =
        filter == static_cast<int>(Filter::scatterColumns) || filter == static_cast<int>(Filter::wave);
    const auto range = rangeOf(describe(filter), r);
    return onPicture(scatters ? Range{range.x0, 0, range.x1, bounds.bottom()} : range, bounds);
}

/// Three rows of a picture as channels, the pixel on either side of the area with them. Rows are widened once
/// each, before the row above them is written over.
class ChannelRows {
  public:
    ChannelRows(const RasterImage& picture, const base::PixelRectangle& area)
        : m_picture(picture), m_area(area)
    {
        for (auto& row : m_rows)
            row.resize((static_cast<std::size_t>(area.width) + 2) * kChannelsPerPixel);
    }

    void read(int y)
    {
        // Colours hold red in the low byte, so in memory the channels stand in their order.
        static_assert(std::endian::native == std::endian::little);
        Channel* const channels = slot(y).data();
        const int first = m_area.left - 1;
        const int count = m_area.width + 2;
        const bool rowExists = y >= 0 && y < m_picture.height();
        const int from = rowExists ? std::max(0, -first) : count;
        const int to = rowExists ? std::min(count, m_picture.width() - first) : count;
        for (int i = 0; i < from; ++i)
            setMissing(channels, i);
        if (from < to) {
            const auto* bytes = reinterpret_cast<const std::uint8_t*>(&m_picture.row(y)[first + from]);
            for (int i = 0; i < (to - from) * kChannelsPerPixel; ++i)
                channels[from * kChannelsPerPixel + i] = bytes[i];
        }
        for (int i = std::max(from, to); i < count; ++i)
            setMissing(channels, i);
    }

    SourceRows around(int y) { return {firstPixel(y - 1), firstPixel(y), firstPixel(y + 1)}; }

  private:
    static void setMissing(Channel* channels, int pixel)
    {
        constexpr auto missing = SplitColor(kNoColour);
        Channel* const place = channels + pixel * kChannelsPerPixel;
        place[0] = static_cast<Channel>(missing.red);
        place[1] = static_cast<Channel>(missing.green);
        place[2] = static_cast<Channel>(missing.blue);
        place[3] = 0;
    }
    std::vector<Channel>& slot(int y) { return m_rows[static_cast<std::size_t>(y + 3) % m_rows.size()]; }
    const Channel* firstPixel(int y) { return slot(y).data() + kChannelsPerPixel; }

    const RasterImage& m_picture;
    base::PixelRectangle m_area;
    std::array<std::vector<Channel>, 3> m_rows;
};

void applyRows(RowFilter filter, RasterImage& picture, const base::PixelRectangle& area)
{
    ChannelRows source(picture, area);
    source.read(area.top - 1);
    source.read(area.top);
    for (int y = area.top; y < area.bottom(); ++y) {
        source.read(y + 1);
        const auto target = picture.row(y).subspan(area.left, area.width);
        filter(source.around(y), reinterpret_cast<std::uint8_t*>(target.data()), area.width);
        for (Colour& pixel : target)
            pixel &= kColourBits;
    }
}

} // namespace

void ImageFilters::applyUnseen(int filter, RasterImage& picture, FilterRectangle rectangle)
{
    const auto description = describe(filter);
    const auto r = resolved(rectangle, picture.width(), picture.height());
    if (description.readsArray && (r.x0 < 0 || r.y0 < 0))
        throw std::out_of_range("a filter's rectangle begins outside the picture");
    const auto range = rangeOf(description, r);
    const auto area = onPicture(range, picture.bounds());
    if (const auto* rule = std::get_if<PixelRule>(&description.work)) {
        for (int y = area.top; y < area.bottom(); ++y)
            (*rule)(picture.row(y).subspan(area.left, area.width),
                    {.small = isSmall(r), .replacement = replacement});
    } else if (const auto* rows = std::get_if<RowFilter>(&description.work)) {
        applyRows(*rows, picture, area);
    } else if (const auto* column = std::get_if<ColumnFilter>(&description.work)) {
        const auto before = description.readsArray ? picture : RasterImage{};
        ColumnWork work{before, picture, m_random};
        const auto columns = onPicture({range.x0, 0, range.x1, 0}, picture.bounds());
        for (int x = columns.left; x < columns.right(); ++x)
            (*column)(work, x, {range.x0, std::max<std::int64_t>(range.y0, 0), range.x1, range.y1});
    }
}

void ImageFilters::ApplyFilter(int filter, Surface& surface, FilterRectangle rectangle)
{
    const auto mode = surface.DrawMode;
    surface.DrawMode = RasterOperation::copyPen;
    const auto r =
        resolved(rectangle, base::roundToInt(surface.ScaleWidth()), base::roundToInt(surface.ScaleHeight()));
    if (isSmall(r))
        applyUnseen(filter, surface.devicePixels(changedArea(filter, r, surface.Image().bounds())), r);
    else
        applyColumnByColumn(filter, surface, r);
    surface.DrawMode = mode;
    surface.Refresh();
}

void ImageFilters::applyColumnByColumn(int filter, Surface& surface, const FilterRectangle& rectangle)
{
    auto after = surface.Image();
    std::exception_ptr failure;
    try {
        applyUnseen(filter, after, rectangle);
    } catch (const std::exception&) {
        failure = std::current_exception();
    }
    const auto area = changedArea(filter, rectangle, after.bounds());
    for (int x = area.left; x < area.right(); ++x) {
        auto& shown = surface.devicePixels({x, area.top, 1, area.height});
        for (int y = area.top; y < area.bottom(); ++y)
            shown.at(x, y) = after.at(x, y);
        surface.Refresh();
    }
    if (failure)
        std::rethrow_exception(failure);
}

} // namespace quillora::drawing
