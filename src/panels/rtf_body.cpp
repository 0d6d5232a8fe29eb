#include "panels/rtf_body.h"

#include "panels/unicode.h"

#include <algorithm>
#include <string_view>
#include <utility>

namespace quillora::panels {

namespace {

constexpr std::size_t kLongestMarker = 64;
constexpr char32_t kParagraphSeparator = 0x2029;

/// A list's marker that stands for a bullet: one character that counts nothing. Word's second level has a
/// plain "o".
bool isBulletMarker(std::string_view marker)
{
    const auto last = marker.find_last_not_of(" \t");
    if (last == marker.npos)
        return false;
    marker = marker.substr(0, last + 1);
    marker.remove_prefix(marker.find_first_not_of(" \t"));
    const char32_t character = takeCharacter(marker);
    const bool counts = (character >= U'0' && character <= U'9') ||
                        ((character | 0x20U) >= U'a' && (character | 0x20U) <= U'z' && character != U'o');
    return marker.empty() && !counts;
}

} // namespace

void RtfBody::beginMarker()
{
    m_marker.clear();
    m_markerIsBullet = false;
}

void RtfBody::addToMarker(char32_t character)
{
    if (m_marker.size() < kLongestMarker && isBoardCharacter(character))
        appendUtf8(m_marker, character);
}

void RtfBody::add(char32_t character, const RtfLook& look)
{
    if (character == kParagraphSeparator) {
        endParagraph(look);
        return;
    }
    if (character == U'\v' || character == U'\n')
        character = kLineBreak;
    if (!isBoardCharacter(character))
        return;
    applyMarker(look);
    if (m_lookChanged || m_builder.paragraphIsEmpty())
        m_builder.add(character, look.character);
    else
        m_builder.addAlike(character);
    m_lookChanged = false;
}

void RtfBody::applyMarker(const RtfLook& look)
{
    if (m_marker.empty())
        return;
    const std::string marker = std::exchange(m_marker, {});
    m_markerIsBullet = look.bullet || isBulletMarker(marker);
    if (m_markerIsBullet)
        return;
    std::string_view rest = marker;
    rest.remove_prefix(std::min(rest.find_first_not_of(' '), rest.size()));
    while (!rest.empty())
        m_builder.add(takeCharacter(rest), look.character);
    m_lookChanged = true;
}

void RtfBody::endParagraph(const RtfLook& look)
{
    applyMarker(look);
    m_builder.endParagraph(look.alignment, look.bullet || m_markerIsBullet, look.character);
    m_markerIsBullet = false;
    m_lookChanged = true;
}

RichText RtfBody::take(const RtfLook& look)
{
    applyMarker(look);
    if (!m_builder.paragraphIsEmpty() || m_builder.paragraphCount() == 0)
        endParagraph(look);
    return m_builder.take();
}

} // namespace quillora::panels
