#pragma once

#include "panels/code_pages.h"

#include <cstdint>
#include <optional>
#include <string>

namespace quillora::panels {

/// Makes characters of what a stream writes them with: bytes of a code page, units of UTF-16, and after each
/// unit the fallback for readers that know no Unicode, which is passed over.
///
/// Each piece gives the characters that it completes: none, one, or two where a half of a surrogate pair
/// before it stood alone, which is U+FFFD.
class RtfCharacters {
  public:
    void setPage(int page) { m_decoder.setPage(page); }

    std::u32string ofByte(std::uint8_t byte);
    /// @p unit as it is written: those above 32767 as negative numbers. The next @p fallbackCharacters pieces
    /// that takesFallback() is asked for are its fallback.
    std::u32string ofUnit(int unit, int fallbackCharacters);
    std::u32string ofCharacter(char32_t character);

    /// Whether the next piece belongs to a fallback, of which it is then taken.
    bool takesFallback();
    /// A group's begin and end, and a word that is no character, end a fallback too: some writers leave it
    /// out.
    void endFallback() { m_fallbackToSkip = 0; }

  private:
    CodePageDecoder m_decoder{};
    int m_fallbackToSkip = 0;
    std::optional<char32_t> m_highSurrogate{};
};

} // namespace quillora::panels
