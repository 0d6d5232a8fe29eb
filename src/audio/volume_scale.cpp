#include "audio/volume_scale.h"

#include <algorithm>

namespace quillora::audio {
namespace {

/// value * to / from, rounded to the nearest.
std::uint32_t scaled(std::uint32_t value, std::uint32_t from, std::uint32_t to)
{
    const std::uint64_t product = std::uint64_t{std::min(value, from)} * to;
    return static_cast<std::uint32_t>((product + from / 2) / from);
}

} // namespace

std::uint32_t toServerVolume(std::uint32_t volume) { return scaled(volume, kLoudest, kServerNormal); }

std::uint32_t fromServerVolume(std::uint32_t serverVolume)
{
    return scaled(serverVolume, kServerNormal, kLoudest);
}

} // namespace quillora::audio
