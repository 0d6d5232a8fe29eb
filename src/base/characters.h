#pragma once

#include <algorithm>
#include <cstddef>
#include <string_view>

namespace quillora::base {

/// Texts are kept in UTF-8, and many of their limits are told in characters, which are code points: whether
/// one begins with this byte.
constexpr bool beginsCharacter(char byte) { return (static_cast<unsigned char>(byte) & 0xC0U) != 0x80U; }

constexpr std::size_t characterCount(std::string_view text)
{
    return static_cast<std::size_t>(std::ranges::count_if(text, beginsCharacter));
}

/// The first @p count characters of @p text, or all of it where it has fewer.
constexpr std::string_view firstCharacters(std::string_view text, std::size_t count)
{
    const auto behind =
        std::ranges::find_if(text, [&count](char byte) { return beginsCharacter(byte) && count-- == 0; });
    return text.substr(0, static_cast<std::size_t>(behind - text.begin()));
}

} // namespace quillora::base
