#pragma once

#include <string>
#include <string_view>

namespace quillora::panels {

inline constexpr char32_t kReplacementCharacter = 0xFFFD;

constexpr bool isSurrogate(char32_t unit) { return unit >= 0xD800 && unit <= 0xDFFF; }

/// Surrogates, and what is no character at all, become U+FFFD.
void appendUtf8(std::string& text, char32_t character);

/// Takes one character off the front of @p text, which isn't empty; bytes that are no UTF-8 give U+FFFD.
char32_t takeCharacter(std::string_view& text);

} // namespace quillora::panels
