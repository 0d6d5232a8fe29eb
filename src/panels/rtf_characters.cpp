#include "panels/rtf_characters.h"

#include "panels/unicode.h"

#include <utility>

namespace quillora::panels {

std::u32string RtfCharacters::ofByte(std::uint8_t byte)
{
    const char32_t character = m_decoder.decode(byte);
    return character == 0 ? std::u32string{} : ofCharacter(character);
}

std::u32string RtfCharacters::ofUnit(int unit, int fallbackCharacters)
{
    m_fallbackToSkip = fallbackCharacters;
    const auto value = static_cast<char32_t>(static_cast<unsigned>(unit) & 0xFFFFU);
    const bool isHigh = value >= 0xD800 && value < 0xDC00;
    const bool isLow = value >= 0xDC00 && value < 0xE000;
    if (isLow && m_highSurrogate)
        return {0x10000 + ((*std::exchange(m_highSurrogate, std::nullopt) - 0xD800) << 10) +
                (value - 0xDC00)};
    if (!isHigh)
        return ofCharacter(value);
    return std::exchange(m_highSurrogate, value) ? std::u32string{kReplacementCharacter} : std::u32string{};
}

std::u32string RtfCharacters::ofCharacter(char32_t character)
{
    std::u32string characters;
    if (std::exchange(m_highSurrogate, std::nullopt))
        characters += kReplacementCharacter;
    characters += isSurrogate(character) ? kReplacementCharacter : character;
    return characters;
}

bool RtfCharacters::takesFallback()
{
    if (m_fallbackToSkip == 0)
        return false;
    --m_fallbackToSkip;
    return true;
}

} // namespace quillora::panels
