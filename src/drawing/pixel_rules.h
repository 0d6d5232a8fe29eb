#pragma once

#include "drawing/image_filters.h"

#include <span>

namespace quillora::drawing {

/// What a rule may want to know beside the pixel.
struct PixelRuleSettings {
    /// Of an area below 256 pixels: a brush's stroke builds up slowly, where a whole picture changes
    /// strongly.
    bool small = false;
    ColourReplacement replacement{};
};

/// Effects that make of each pixel another one, by that pixel alone, in place.
using PixelRule = void (*)(std::span<Colour> row, const PixelRuleSettings& settings);

/// White where any channel is at least 192, else black.
void blackAndWhiteRow(std::span<Colour> row, const PixelRuleSettings& settings);
void brightenRow(std::span<Colour> row, const PixelRuleSettings& settings);
/// Dark values fold back upward: the sign is dropped.
void darkenRow(std::span<Colour> row, const PixelRuleSettings& settings);
/// 0.32 of each channel. The weights sum to 0.96, so white becomes a light grey.
void greyRow(std::span<Colour> row, const PixelRuleSettings& settings);
void replaceColourRow(std::span<Colour> row, const PixelRuleSettings& settings);

/// The grey of one pixel, from products of its channels' differences. Throws std::overflow_error where one
/// leaves the range of 16 bits, which bright pixels do.
Colour comicGrey(Colour colour);

/// The colour of three channels: those above 255 are held there, those below 0 at 0.
Colour heldColour(int red, int green, int blue);

} // namespace quillora::drawing
