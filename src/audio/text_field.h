#pragma once

#include <string>
#include <string_view>

namespace quillora::audio {

/// Characters of the fields that devices and lines keep their names in, the NUL at the end included.
inline constexpr int kDeviceNameField = 32;
inline constexpr int kLineNameField = 64;

/// @p text as a field of @p characters characters keeps it: cut so that one NUL at least follows, and filled
/// up with NULs. UTF-8; a character is a code point.
std::string paddedField(std::string_view text, int characters);

/// What a field holds: all of it up to the first NUL.
std::string fieldText(std::string_view field);

} // namespace quillora::audio
