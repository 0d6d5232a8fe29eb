#include "panels/rtf_reader.h"

#include "panels/code_pages.h"
#include "panels/rtf_body.h"
#include "panels/rtf_characters.h"
#include "panels/rtf_lexer.h"
#include "panels/rtf_tables.h"
#include "panels/rtf_words.h"

#include <algorithm>
#include <optional>
#include <stdexcept>
#include <utility>
#include <vector>

namespace quillora::panels {

namespace {

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
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

/// Everything that a group restores at its end.
struct GroupState {
    RtfLook look{.character = {.size = {kDefaultHalfPoints * kTwipsPerHalfPoint}}};
    /// Its number; unset, that of the document.
    std::optional<int> font{};
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
          m_body(limits.characters),
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
    void put(const std::u32string& characters);
    void put(char32_t character);
    void takeFont(int number);
    void applyFont();

    RtfLexer m_lexer;
    RtfLimits m_limits;
    RtfCharacters m_characters{};
    RtfBody m_body;
    RtfFontTable m_fonts;
    RtfColourTable m_colours;
    GroupState m_state{};
    std::vector<GroupState> m_outer{};
    /// Groups that were begun beyond the limit.
    std::size_t m_tooDeep = 0;
    bool m_starred = false;

    int m_documentPage = kWesternPage;
    int m_defaultFont = 0;
};

RichText Reader::read()
{
    for (RtfToken token = m_lexer.next(); token.kind != RtfToken::Kind::end && !m_body.full();
         token = m_lexer.next()) {
        using Kind = RtfToken::Kind;
        // What ends the outermost group ends the document, and the last paragraph still has its look.
        if (token.kind == Kind::groupEnd && m_tooDeep == 0 && m_outer.size() <= 1)
            break;
        if (token.kind == Kind::groupBegin)
            beginGroup();
        else if (token.kind == Kind::groupEnd)
            endGroup();
        else if (m_tooDeep > 0 || (token.kind == Kind::binary && !m_characters.takesFallback()))
            continue;
        else if (token.kind == Kind::byte && !m_characters.takesFallback())
            byte(token.byte);
        else if (token.kind == Kind::text)
            for (const char each : token.name) {
                if (!m_characters.takesFallback())
                    byte(static_cast<std::uint8_t>(each));
            }
        else if (token.kind == Kind::controlWord || token.kind == Kind::controlSymbol)
            control(token);
    }
    return m_body.take(m_state.look);
}

void Reader::beginGroup()
{
    m_characters.endFallback();
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
    m_characters.endFallback();
    m_starred = false;
    if (m_tooDeep > 0) {
        --m_tooDeep;
        return;
    }
    if (m_state.destination == RtfDestination::fontTable)
        m_fonts.end();
    const bool bullet = m_state.look.bullet && m_state.destination == RtfDestination::numbering;
    m_state = std::move(m_outer.back());
    m_outer.pop_back();
    m_state.look.bullet = m_state.look.bullet || bullet;
    m_body.changeLook();
    applyFont();
}

void Reader::control(const RtfToken& token)
{
    const bool starred =
        std::exchange(m_starred, token.kind == RtfToken::Kind::controlSymbol && token.name == "*");
    if (m_starred)
        return;
    const RtfWord* word = findRtfWord(token.name);
    const bool isCharacter = word != nullptr && word->action == RtfAction::character;
    if (isCharacter && m_characters.takesFallback())
        return;
    if (!isCharacter)
        m_characters.endFallback();
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
    if (destination == RtfDestination::marker)
        m_body.beginMarker();
}

void Reader::apply(const RtfWord& word, std::optional<int> parameter)
{
    switch (word.action) {
    case RtfAction::character:
        put(m_characters.ofCharacter(static_cast<char32_t>(word.value)));
        break;
    case RtfAction::destination:
        enter(static_cast<RtfDestination>(word.value));
        break;
    case RtfAction::paragraphEnd:
        if (m_state.destination == RtfDestination::body)
            m_body.endParagraph(m_state.look);
        break;
    case RtfAction::unicode:
        put(m_characters.ofUnit(parameter.value_or(0), m_state.fallbackCharacters));
        break;
    case RtfAction::fallbackLength:
        m_state.fallbackCharacters = std::clamp(parameter.value_or(1), 0, kMostFallbackCharacters);
        break;
    case RtfAction::outdatedGroup:
        m_state.nextGroupIsOutdated = true;
        break;
    case RtfAction::codePage:
        m_documentPage = word.value != 0 ? word.value : parameter.value_or(kWesternPage);
        applyFont();
        break;
    case RtfAction::defaultFont:
        m_defaultFont = parameter.value_or(0);
        applyFont();
        break;
    case RtfAction::paragraphDefaults:
        m_state.look.alignment = Alignment::left;
        m_state.look.bullet = false;
        break;
    case RtfAction::alignment:
        m_state.look.alignment = static_cast<Alignment>(word.value);
        break;
    case RtfAction::bullet:
        m_state.look.bullet = true;
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
    case RtfAction::characterDefaults:
    case RtfAction::bold:
    case RtfAction::italic:
    case RtfAction::underline:
    case RtfAction::noUnderline:
    case RtfAction::hidden:
    case RtfAction::font:
    case RtfAction::halfPoints:
    case RtfAction::twips:
    case RtfAction::colour:
        m_body.changeLook();
        applyCharacterWord(word.action, parameter);
        break;
    }
}

void Reader::applyCharacterWord(RtfAction action, std::optional<int> parameter)
{
    CharacterFormat& character = m_state.look.character;
    const bool on = parameter.value_or(1) != 0;
    switch (action) {
    case RtfAction::characterDefaults: {
        const GroupState plain;
        character = plain.look.character;
        m_state.font.reset();
        m_state.hidden = false;
        applyFont();
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
    m_characters.setPage(m_fonts.codePage().value_or(m_documentPage));
}

void Reader::takeFont(int number)
{
    if (m_state.destination == RtfDestination::fontTable) {
        m_fonts.begin(number);
        m_characters.setPage(m_documentPage);
        return;
    }
    m_state.font = number;
    applyFont();
}

/// The characters that come are in this font, and their bytes in its code page.
void Reader::applyFont()
{
    const RtfFont* font = m_fonts.find(m_state.font.value_or(m_defaultFont));
    m_characters.setPage(font == nullptr ? m_documentPage : font->codePage.value_or(m_documentPage));
    m_state.look.character.font = font == nullptr ? CharacterFormat().font : font->name;
}

void Reader::byte(std::uint8_t value)
{
    if (m_state.destination != RtfDestination::skipped && m_state.destination != RtfDestination::numbering)
        put(m_characters.ofByte(value));
}

void Reader::put(const std::u32string& characters)
{
    for (const char32_t each : characters)
        put(each);
}

void Reader::put(char32_t character)
{
    switch (m_state.destination) {
    case RtfDestination::body:
        if (!m_state.hidden)
            m_body.add(character, m_state.look);
        break;
    case RtfDestination::marker:
        m_body.addToMarker(character);
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

} // namespace

bool isRtf(std::string_view stream) { return withoutFrontMatter(stream).starts_with("{\\rtf"); }

RichText readRtf(std::string_view stream, const RtfLimits& limits)
{
    if (!isRtf(stream))
        throw std::runtime_error("no RTF");
    return Reader(withoutFrontMatter(stream), limits).read();
}

} // namespace quillora::panels
