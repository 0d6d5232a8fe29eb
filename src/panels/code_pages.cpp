#include "panels/code_pages.h"

#include "panels/code_page_tables.h"
#include "panels/unicode.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace quillora::panels {

namespace {

constexpr std::pair<int, int> kPageOfCharset[] = {
    {0, kWesternPage}, {2, kSymbolPage}, {77, 10000}, {128, 932},  {129, 949},  {130, 1361}, {134, 936},
    {136, 950},        {161, 1253},      {162, 1254}, {163, 1258}, {177, 1255}, {178, 1256}, {186, 1257},
    {204, 1251},       {222, 874},       {238, 1250}, {254, 437},  {255, 850},
};

/// In the fonts of symbols, what a list's marker is most often made of.
constexpr std::uint8_t kSymbolBullet = 0xB7;
constexpr char32_t kBullet = 0x2022;
constexpr char32_t kFirstSymbol = 0xF000;

bool isDoubleBytePage(int page)
{
    return page == 932 || page == 936 || page == 949 || page == 950 || page == 1361;
}

/// Bytes of page 932 that stand alone: the narrow katakana, in the order of Unicode.
constexpr std::uint8_t kFirstKatakana = 0xA1;
constexpr std::uint8_t kLastKatakana = 0xDF;
constexpr char32_t kFirstKatakanaCharacter = 0xFF61;

int followingOfUtf8(std::uint8_t lead) { return lead >= 0xF0 ? 3 : lead >= 0xE0 ? 2 : 1; }

} // namespace

int codePageOfCharset(int charset, int fallback)
{
    const auto* found = std::ranges::find(kPageOfCharset, charset, &std::pair<int, int>::first);
    return found == std::end(kPageOfCharset) ? fallback : found->second;
}

void CodePageDecoder::setPage(int page)
{
    if (page == m_page)
        return;
    m_page = page;
    m_begun.clear();
    m_upperHalf = upperHalfOfPage(page);
    if (m_upperHalf == nullptr)
        m_upperHalf = upperHalfOfPage(kWesternPage);
}

char32_t CodePageDecoder::decode(std::uint8_t byte)
{
    if (m_page == kUtf8Page)
        return decodeUtf8(byte);
    if (m_page == kSymbolPage && byte >= 0x20)
        return byte == kSymbolBullet ? kBullet : byte < 0x80 ? byte : kFirstSymbol + byte;
    if (isDoubleBytePage(m_page)) {
        if (!m_begun.empty()) {
            m_begun.clear();
            return kReplacementCharacter;
        }
        if (m_page == 932 && byte >= kFirstKatakana && byte <= kLastKatakana)
            return kFirstKatakanaCharacter + (byte - kFirstKatakana);
        if (byte > 0x80) {
            m_begun.push_back(static_cast<char>(byte));
            return 0;
        }
    }
    if (byte < 0x80)
        return byte;
    return m_upperHalf[byte - 0x80];
}

char32_t CodePageDecoder::decodeUtf8(std::uint8_t byte)
{
    if (byte < 0x80) {
        m_begun.clear();
        return byte;
    }
    const bool isLead = byte >= 0xC0;
    if (isLead)
        m_begun.clear();
    m_begun.push_back(static_cast<char>(byte));
    const auto lead = static_cast<std::uint8_t>(m_begun.front());
    if (lead >= 0xC0 && m_begun.size() <= static_cast<std::size_t>(followingOfUtf8(lead)))
        return 0;
    std::string_view whole = m_begun;
    const char32_t character = takeCharacter(whole);
    m_begun.clear();
    return character;
}

} // namespace quillora::panels
