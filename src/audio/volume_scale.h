#pragma once

#include <cstdint>

namespace quillora::audio {

/// Loudest volume of a mixer line.
inline constexpr std::uint32_t kLoudest = 65535;
/// The volume at which a sound server neither raises nor lowers, of which louder ones are multiples.
inline constexpr std::uint32_t kServerNormal = 65536;

/// A line's volume on the scale of the sound server, and back: 0 is 0 and kLoudest is kServerNormal. No two
/// volumes of a line become one, so that each comes back as it went. What lies above is cut to the loudest.
std::uint32_t toServerVolume(std::uint32_t volume);
std::uint32_t fromServerVolume(std::uint32_t serverVolume);

} // namespace quillora::audio
