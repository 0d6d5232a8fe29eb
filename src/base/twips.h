#pragma once

#include <compare>

namespace quillora::base {

/// A length on a form: a twentieth of a point. The layout is told in twips throughout.
struct Twips {
    int value = 0;

    constexpr auto operator<=>(const Twips&) const = default;
};

inline constexpr double kTwipsPerPoint = 20;

/// The one scale of the system, whatever the screen: all rectangles of the stage come out in whole pixels.
inline constexpr int kTwipsPerPixel = 15;

/// @p length in pixels of the form, not rounded.
constexpr float toPixels(Twips length) { return static_cast<float>(length.value) / kTwipsPerPixel; }

/// The stage `Picture1`, 747 by 420 pixels: what is recorded.
inline constexpr Twips kStageWidth{11205};
inline constexpr Twips kStageHeight{6300};

} // namespace quillora::base
