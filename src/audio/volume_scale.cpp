#include "audio/volume_scale.h"

#include <algorithm>

namespace quillora::audio {

std::uint32_t toServerVolume(std::uint32_t volume) { return volume >= kLoudest ? kServerNormal : volume; }

std::uint32_t fromServerVolume(std::uint32_t serverVolume) { return std::min(serverVolume, kLoudest); }

} // namespace quillora::audio
