#pragma once

#include <cstdint>
#include <string>

namespace quillora::panels {

/// Numbers of code pages, as RTF and Windows have them.
inline constexpr int kWesternPage = 1252;
inline constexpr int kUtf8Page = 65001;
/// No code page of that system: the bytes of a font of symbols, which have characters of their own.
inline constexpr int kSymbolPage = 42;

/// The code page of a font by its character set (\fcharset); @p fallback for a set that says nothing.
int codePageOfCharset(int charset, int fallback);

/// Turns bytes of a code page into characters. Known are the single-byte pages 437, 850, 852, 866, 874, 1250
/// to 1258, 10000, and UTF-8. Of the double-byte pages of East Asia (932, 936, 949, 950, 1361) it knows which
/// bytes belong together, and gives U+FFFD for each pair: their tables are large, and office programs write
/// such text as Unicode beside them. A page that it doesn't know is read as 1252.
class CodePageDecoder {
  public:
    CodePageDecoder() { setPage(kWesternPage); }

    /// A character that was begun in another page is dropped.
    void setPage(int page);

    /// The character that @p byte ends; 0 when there are more bytes to come.
    char32_t decode(std::uint8_t byte);

  private:
    char32_t decodeUtf8(std::uint8_t byte);

    int m_page = 0;
    const char16_t* m_upperHalf = nullptr;
    std::string m_begun{};
};

} // namespace quillora::panels
