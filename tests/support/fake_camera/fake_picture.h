#pragma once

#include <cstdint>
#include <vector>

namespace quillora::tests::fake_camera {

inline constexpr int kWidth = 640;
inline constexpr int kHeight = 480;
/// A bar stands elsewhere in each.
inline constexpr int kPhaseCount = 4;

struct Colour {
    std::uint8_t red;
    std::uint8_t green;
    std::uint8_t blue;
};

/// A speaker before a wall of that colour. In the corners stand squares of 80 pixels: red, green, blue and
/// white, from the top left to the bottom right; so it can be told from outside whether the whole picture is
/// shown, the right way up, in its colours.
std::vector<std::uint8_t> yuyvPicture(Colour wall, int phase);
std::vector<std::uint8_t> jpegPicture(Colour wall, int phase);

} // namespace quillora::tests::fake_camera
