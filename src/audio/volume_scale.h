#pragma once

#include <cstdint>

namespace quillora::audio {

/// Loudest volume of a mixer line.
inline constexpr std::uint32_t kLoudest = 65535;
/// The volume at which a sound server neither raises nor lowers, of which louder ones are multiples.
inline constexpr std::uint32_t kServerNormal = 65536;

/// A line's volume on the scale of the sound server, and back: the same number, but for the loudest, which is
/// kServerNormal. So nine tenths here are nine tenths wherever else the volume is set and shown, and each
/// volume of a line comes back as it went. What lies above is cut to the loudest.
std::uint32_t toServerVolume(std::uint32_t volume);
std::uint32_t fromServerVolume(std::uint32_t serverVolume);

} // namespace quillora::audio
