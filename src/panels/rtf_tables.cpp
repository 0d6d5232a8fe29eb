#include "panels/rtf_tables.h"

#include "panels/rich_text.h"
#include "panels/unicode.h"

#include <algorithm>

namespace quillora::panels {

namespace {

constexpr std::size_t kLongestFontName = 128;

int colourPart(int value) { return std::clamp(value, 0, 255); }

} // namespace

void RtfFontTable::begin(int number)
{
    m_number = number;
    m_font = {};
}

void RtfFontTable::add(char32_t character)
{
    if (character == U';')
        end();
    else if (m_font.name.size() < kLongestFontName && isBoardCharacter(character) && character != U'\t')
        appendUtf8(m_font.name, character);
}

void RtfFontTable::end()
{
    std::string& name = m_font.name;
    name.erase(name.find_last_not_of(' ') + 1);
    name.erase(0, name.find_first_not_of(' '));
    if (!name.empty() && m_fonts.size() < m_limit)
        m_fonts.insert_or_assign(m_number, m_font);
    m_font = {};
}

const RtfFont* RtfFontTable::find(int number) const
{
    const auto found = m_fonts.find(number);
    return found == m_fonts.end() ? nullptr : &found->second;
}

void RtfColourTable::setRed(int part) { m_red = colourPart(part); }

void RtfColourTable::setGreen(int part) { m_green = colourPart(part); }

void RtfColourTable::setBlue(int part) { m_blue = colourPart(part); }

void RtfColourTable::end()
{
    if (m_colours.size() < m_limit)
        m_colours.push_back(base::rgb(m_red, m_green, m_blue));
    m_red = m_green = m_blue = 0;
}

base::Colour RtfColourTable::at(int index) const
{
    const bool isThere = index >= 0 && static_cast<std::size_t>(index) < m_colours.size();
    return isThere ? m_colours[static_cast<std::size_t>(index)] : base::rgb(0, 0, 0);
}

} // namespace quillora::panels
