#pragma once

namespace quillora::drawing {

inline constexpr int kLeftButton = 1;
inline constexpr int kRightButton = 2;

/// Shift states as events carry them. Both keys together are 3, which means neither of these.
inline constexpr int kShiftAlone = 1;
inline constexpr int kControlAlone = 2;

inline constexpr int kEnterKey = 13;
inline constexpr int kEscapeKey = 27;

/// A press, move or release, in the scale of the surface that it happens on. A press and a release tell the
/// one button that changed; a move tells all that are held, as a sum.
struct PointerEvent {
    int button = 0;
    int shift = 0;
    float x = 0;
    float y = 0;
};

} // namespace quillora::drawing
