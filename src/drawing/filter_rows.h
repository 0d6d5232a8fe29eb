#pragma once

#include <cstdint>

namespace quillora::drawing {

/// One channel value as the filters reckon with it: 0 to 255, and -1 for the red of a pixel that is not
/// there.
using Channel = std::int16_t;

/// Channel values stand pixel after pixel, four to a pixel: the three colours and one that doesn't count. The
/// filters below treat all of them alike, so that a compiler can take eight at a time.
inline constexpr int kChannelsPerPixel = 4;

/// Three neighbouring rows of the picture as it was before the filter began. Each points at the channels of
/// the pixel that the target row begins with; one pixel before it and one after the last can be read.
struct SourceRows {
    const Channel* above;
    const Channel* here;
    const Channel* below;
};

/// Reckons @p width pixels of the target row, each channel 0 to 255.
using RowFilter = void (*)(const SourceRows& source, std::uint8_t* target, int width);

/// The 3 by 3 block divided by ten. Nine values over ten: it darkens by a tenth as well, and that is wanted.
void softBlurRow(const SourceRows& source, std::uint8_t* target, int width);
/// The difference from the pixel below and to the right, less 128, without its sign.
void embossRow(const SourceRows& source, std::uint8_t* target, int width);
/// The difference from the pixel above and to the left, added by half.
void sharpenRow(const SourceRows& source, std::uint8_t* target, int width);
/// The same difference, added 24 times.
void strongSharpenRow(const SourceRows& source, std::uint8_t* target, int width);

} // namespace quillora::drawing
