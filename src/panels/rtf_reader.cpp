#include "panels/rtf_reader.h"

#include "panels/code_pages.h"
#include "panels/rtf_lexer.h"
#include "panels/rtf_tables.h"
#include "panels/rtf_words.h"
#include "panels/unicode.h"

#include <algorithm>
#include <optional>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

namespace quillora::panels {

namespace {

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
constexpr std::size_t kLongestMarker = 64;
constexpr int kMostFallbackCharacters = 1'000;
constexpr int kTwipsPerHalfPoint = 10;
/// What a character without a size has, in half points.
constexpr int kDefaultHalfPoints = 24;

std::string_view withoutFrontMatter(std::string_view stream)
{
    if (stream.starts_with(kByteOrderMark))
        stream.remove_prefix(kByteOrderMark.size());
    const auto begin = stream.find_first_not_of(" \t\r\n");
    return begin == stream.npos ? std::string_view{} : stream.substr(begin);
}

base::Twips allowedSize(long long twips)
{
    return {static_cast<int>(std::clamp<long long>(twips, kSmallestFontSize.value, kLargestFontSize.value))};
}

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

/// Everything that a group restores at its end.
struct GroupState {
    CharacterFormat character{.font = {}, .size = {kDefaultHalfPoints * kTwipsPerHalfPoint}};
    std::optional<int> font{};
    Alignment alignment = Alignment::left;
    bool bullet = false;
    bool hidden = false;
    RtfDestination destination = RtfDestination::body;
    int fallbackCharacters = 1;
    /// The next group holds what another one after it says better.
    bool nextGroupIsOutdated = false;
};

class Reader {
  public:
    Reader(std::string_view stream, const RtfLimits& limits)
        : m_lexer(stream),
          m_limits(limits),
          m_builder(limits.characters),
          m_fonts(limits.tableEntries),
          m_colours(limits.tableEntries)
    {}

    RichText read();

  private:
    void beginGroup();
    void endGroup();
    void control(const RtfToken& token);
    void apply(const RtfWord& word, std::optional<int> parameter);
    void applyCharacterWord(RtfAction action, std::optional<int> parameter);
    void applyFontWord(RtfAction action, int value);
    void applyColourWord(RtfAction action, int value);
    void enter(RtfDestination destination);
    void byte(std::uint8_t value);
    void unicode(int unit);
    void put(char32_t character);
    void putIntoDestination(char32_t character);
    void putIntoBody(char32_t character);
    void endParagraph();
    void applyMarker();
    void takeFont(int number);
    void choosePage();
    bool takesFallback();
    const CharacterFormat& format();

    RtfLexer m_lexer;
    RtfLimits m_limits;
    RichTextBuilder m_builder;
    GroupState m_state{};
    std::vector<GroupState> m_outer{};
    /// Groups that were begun beyond the limit.
    std::size_t m_tooDeep = 0;
    bool m_starred = false;
    /// Whether the format may differ from that of the last character that was put into the body.
    bool m_formatChanged = true;
    int m_fallbackToSkip = 0;
    std::optional<char32_t> m_highSurrogate{};

    int m_documentPage = kWesternPage;
    int m_defaultFont = 0;
    CodePageDecoder m_decoder{};
    RtfFontTable m_fonts;
    RtfColourTable m_colours;

    std::string m_marker{};
    bool m_markerIsBullet = false;
};

RichText Reader::read()
{
    for (RtfToken token = m_lexer.next(); token.kind != RtfToken::Kind::end && !m_builder.full();
         token = m_lexer.next()) {
        using Kind = RtfToken::Kind;
        // What ends the outermost group ends the document, and the last paragraph still has its look.
        if (token.kind == Kind::groupEnd && m_tooDeep == 0 && m_outer.size() <= 1)
            break;
        if (token.kind == Kind::groupBegin)
            beginGroup();
        else if (token.kind == Kind::groupEnd)
            endGroup();
        else if (m_tooDeep > 0 || (token.kind == Kind::binary && !takesFallback()))
            continue;
        else if (token.kind == Kind::byte && !takesFallback())
            byte(token.byte);
        else if (token.kind == Kind::text)
            for (const char each : token.name) {
                if (!takesFallback())
                    byte(static_cast<std::uint8_t>(each));
            }
        else if (token.kind == Kind::controlWord || token.kind == Kind::controlSymbol)
            control(token);
    }
    // The last paragraph's end stands in most streams, and makes no paragraph after it.
    applyMarker();
    if (!m_builder.paragraphIsEmpty() || m_builder.paragraphCount() == 0)
        endParagraph();
    return m_builder.take();
}

void Reader::beginGroup()
{
    m_fallbackToSkip = 0;
    m_starred = false;
    if (m_tooDeep > 0 || m_outer.size() >= m_limits.depth) {
        ++m_tooDeep;
        return;
    }
    const bool outdated = std::exchange(m_state.nextGroupIsOutdated, false);
    m_outer.push_back(m_state);
    if (outdated)
        m_state.destination = RtfDestination::skipped;
}

void Reader::endGroup()
{
    m_fallbackToSkip = 0;
    m_starred = false;
    if (m_tooDeep > 0) {
        --m_tooDeep;
        return;
    }
    if (m_state.destination == RtfDestination::fontTable)
        m_fonts.end();
    const bool bullet = m_state.bullet && m_state.destination == RtfDestination::numbering;
    m_state = std::move(m_outer.back());
    m_outer.pop_back();
    m_state.bullet = m_state.bullet || bullet;
    m_formatChanged = true;
    choosePage();
}

bool Reader::takesFallback()
{
    if (m_fallbackToSkip == 0)
        return false;
    --m_fallbackToSkip;
    return true;
}

void Reader::control(const RtfToken& token)
{
    const bool starred =
        std::exchange(m_starred, token.kind == RtfToken::Kind::controlSymbol && token.name == "*");
    if (m_starred)
        return;
    const RtfWord* word = findRtfWord(token.name);
    const bool isCharacter = word != nullptr && word->action == RtfAction::character;
    if (isCharacter && takesFallback())
        return;
    // Some writers leave the fallback out: what is no character is never one.
    if (!isCharacter)
        m_fallbackToSkip = 0;
    if (word != nullptr)
        apply(*word, token.parameter);
    // The star says: who does not know the word passes over the group.
    const bool known =
        word != nullptr && (word->action == RtfAction::destination || word->action == RtfAction::transparent);
    if (starred && !known)
        enter(RtfDestination::skipped);
}

void Reader::enter(RtfDestination destination)
{
    // Nothing that is passed over comes back inside.
    if (m_state.destination == RtfDestination::skipped)
        return;
    m_state.destination = destination;
    if (destination == RtfDestination::marker) {
        m_marker.clear();
        m_markerIsBullet = false;
    }
}

void Reader::apply(const RtfWord& word, std::optional<int> parameter)
{
    switch (word.action) {
    case RtfAction::character:
        put(static_cast<char32_t>(word.value));
        break;
    case RtfAction::destination:
        enter(static_cast<RtfDestination>(word.value));
        break;
    case RtfAction::paragraphEnd:
        if (m_state.destination == RtfDestination::body)
            endParagraph();
        break;
    case RtfAction::unicode:
        unicode(parameter.value_or(0));
        break;
    case RtfAction::fallbackLength:
        m_state.fallbackCharacters = std::clamp(parameter.value_or(1), 0, kMostFallbackCharacters);
        break;
    case RtfAction::outdatedGroup:
        m_state.nextGroupIsOutdated = true;
        break;
    case RtfAction::codePage:
        m_documentPage = word.value != 0 ? word.value : parameter.value_or(kWesternPage);
        choosePage();
        break;
    case RtfAction::defaultFont:
        m_defaultFont = parameter.value_or(0);
        break;
    case RtfAction::paragraphDefaults:
        m_state.alignment = Alignment::left;
        m_state.bullet = false;
        break;
    case RtfAction::alignment:
        m_state.alignment = static_cast<Alignment>(word.value);
        break;
    case RtfAction::bullet:
        m_state.bullet = true;
        break;
    case RtfAction::fontCharset:
    case RtfAction::fontCodePage:
        applyFontWord(word.action, parameter.value_or(0));
        break;
    case RtfAction::red:
    case RtfAction::green:
    case RtfAction::blue:
        applyColourWord(word.action, parameter.value_or(0));
        break;
    case RtfAction::transparent:
        break;
    default:
        m_formatChanged = true;
        applyCharacterWord(word.action, parameter);
        break;
    }
}

void Reader::applyCharacterWord(RtfAction action, std::optional<int> parameter)
{
    CharacterFormat& character = m_state.character;
    const bool on = parameter.value_or(1) != 0;
    switch (action) {
    case RtfAction::characterDefaults: {
        const GroupState plain;
        character = plain.character;
        m_state.font.reset();
        m_state.hidden = false;
        choosePage();
        break;
    }
    case RtfAction::bold:
        character.bold = on;
        break;
    case RtfAction::italic:
        character.italic = on;
        break;
    case RtfAction::underline:
        character.underline = on;
        break;
    case RtfAction::noUnderline:
        character.underline = false;
        break;
    case RtfAction::hidden:
        m_state.hidden = on;
        break;
    case RtfAction::font:
        takeFont(parameter.value_or(0));
        break;
    case RtfAction::halfPoints:
        character.size =
            allowedSize(parameter.value_or(kDefaultHalfPoints) * static_cast<long long>(kTwipsPerHalfPoint));
        break;
    case RtfAction::twips:
        character.size = allowedSize(parameter.value_or(kDefaultHalfPoints * kTwipsPerHalfPoint));
        break;
    case RtfAction::colour:
        character.colour = m_colours.at(parameter.value_or(0));
        break;
    default:
        break;
    }
}

void Reader::applyColourWord(RtfAction action, int value)
{
    if (action == RtfAction::red)
        m_colours.setRed(value);
    else if (action == RtfAction::green)
        m_colours.setGreen(value);
    else
        m_colours.setBlue(value);
}

void Reader::applyFontWord(RtfAction action, int value)
{
    constexpr int kDefaultCharset = 1;
    if (m_state.destination != RtfDestination::fontTable)
        return;
    if (action == RtfAction::fontCodePage)
        m_fonts.setCodePage(value);
    else if (value != kDefaultCharset)
        m_fonts.setCodePage(codePageOfCharset(value, m_documentPage));
    m_decoder.setPage(m_fonts.codePage().value_or(m_documentPage));
}

void Reader::takeFont(int number)
{
    if (m_state.destination == RtfDestination::fontTable) {
        m_fonts.begin(number);
        m_decoder.setPage(m_documentPage);
        return;
    }
    m_state.font = number;
    choosePage();
}

void Reader::choosePage()
{
    const RtfFont* font = m_fonts.find(m_state.font.value_or(m_defaultFont));
    m_decoder.setPage(font == nullptr ? m_documentPage : font->codePage.value_or(m_documentPage));
}

void Reader::byte(std::uint8_t value)
{
    if (m_state.destination == RtfDestination::skipped || m_state.destination == RtfDestination::numbering)
        return;
    if (const char32_t character = m_decoder.decode(value); character != 0)
        put(character);
}

void Reader::unicode(int unit)
{
    // Units above 32767 are written as negative numbers.
    const auto value = static_cast<char32_t>(static_cast<unsigned>(unit) & 0xFFFFU);
    const bool isHigh = value >= 0xD800 && value < 0xDC00;
    const bool isLow = value >= 0xDC00 && value < 0xE000;
    if (isLow && m_highSurrogate)
        put(0x10000 + ((*std::exchange(m_highSurrogate, std::nullopt) - 0xD800) << 10) + (value - 0xDC00));
    else if (!isHigh)
        put(value);
    else if (std::exchange(m_highSurrogate, value))
        putIntoDestination(kReplacementCharacter);
    m_fallbackToSkip = m_state.fallbackCharacters;
}

void Reader::put(char32_t character)
{
    // Half a character stands alone.
    if (std::exchange(m_highSurrogate, std::nullopt))
        putIntoDestination(kReplacementCharacter);
    putIntoDestination(isSurrogate(character) ? kReplacementCharacter : character);
}

void Reader::putIntoDestination(char32_t character)
{
    switch (m_state.destination) {
    case RtfDestination::body:
        if (!m_state.hidden)
            putIntoBody(character);
        break;
    case RtfDestination::marker:
        if (m_marker.size() < kLongestMarker && isBoardCharacter(character))
            appendUtf8(m_marker, character);
        break;
    case RtfDestination::fontTable:
        m_fonts.add(character);
        break;
    case RtfDestination::colourTable:
        if (character == U';')
            m_colours.end();
        break;
    case RtfDestination::numbering:
    case RtfDestination::skipped:
        break;
    }
}

void Reader::putIntoBody(char32_t character)
{
    if (character == 0x2029) {
        endParagraph();
        return;
    }
    if (character == U'\v' || character == U'\n')
        character = kLineBreak;
    if (!isBoardCharacter(character))
        return;
    applyMarker();
    if (m_formatChanged || m_builder.paragraphIsEmpty())
        m_builder.add(character, format());
    else
        m_builder.addAlike(character);
    m_formatChanged = false;
}

void Reader::applyMarker()
{
    if (m_marker.empty())
        return;
    const std::string marker = std::exchange(m_marker, {});
    m_markerIsBullet = m_state.bullet || isBulletMarker(marker);
    if (m_markerIsBullet)
        return;
    std::string_view rest = marker;
    rest.remove_prefix(std::min(rest.find_first_not_of(' '), rest.size()));
    while (!rest.empty())
        m_builder.add(takeCharacter(rest), format());
    m_formatChanged = true;
}

void Reader::endParagraph()
{
    applyMarker();
    m_builder.endParagraph(m_state.alignment, m_state.bullet || m_markerIsBullet, format());
    m_markerIsBullet = false;
    m_formatChanged = true;
}

const CharacterFormat& Reader::format()
{
    const RtfFont* font = m_fonts.find(m_state.font.value_or(m_defaultFont));
    m_state.character.font = font == nullptr ? CharacterFormat().font : font->name;
    return m_state.character;
}

} // namespace

bool isRtf(std::string_view stream) { return withoutFrontMatter(stream).starts_with("{\\rtf"); }

RichText readRtf(std::string_view stream, const RtfLimits& limits)
{
    if (!isRtf(stream))
        throw std::runtime_error("no RTF");
    return Reader(withoutFrontMatter(stream), limits).read();
}

} // namespace quillora::panels
