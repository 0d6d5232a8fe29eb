#include "panels/unicode.h"

namespace quillora::panels {

namespace {

constexpr char32_t kLastCharacter = 0x10FFFF;

struct Lead {
    int following;
    char32_t bits;
    /// A character that a shorter form can hold must not stand in a longer one.
    char32_t smallest;
};

Lead leadOf(unsigned char byte)
{
    if (byte < 0x80)
        return {0, byte, 0};
    if (byte >= 0xC2 && byte < 0xE0)
        return {1, byte & 0x1FU, 0x80};
    if (byte >= 0xE0 && byte < 0xF0)
        return {2, byte & 0x0FU, 0x800};
    if (byte >= 0xF0 && byte < 0xF5)
        return {3, byte & 0x07U, 0x10000};
    return {0, kReplacementCharacter, 0};
}

} // namespace

void appendUtf8(std::string& text, char32_t character)
{
    if (isSurrogate(character) || character > kLastCharacter)
        character = kReplacementCharacter;
    const auto tail = [&](int shift) {
        text.push_back(static_cast<char>(0x80U | (character >> shift & 0x3FU)));
    };
    if (character < 0x80) {
        text.push_back(static_cast<char>(character));
    } else if (character < 0x800) {
        text.push_back(static_cast<char>(0xC0U | character >> 6));
        tail(0);
    } else if (character < 0x10000) {
        text.push_back(static_cast<char>(0xE0U | character >> 12));
        tail(6);
        tail(0);
    } else {
        text.push_back(static_cast<char>(0xF0U | character >> 18));
        tail(12);
        tail(6);
        tail(0);
    }
}

char32_t takeCharacter(std::string_view& text)
{
    const Lead lead = leadOf(static_cast<unsigned char>(text.front()));
    text.remove_prefix(1);
    char32_t character = lead.bits;
    for (int i = 0; i < lead.following; ++i) {
        if (text.empty() || (static_cast<unsigned char>(text.front()) & 0xC0U) != 0x80U)
            return kReplacementCharacter;
        character = character << 6 | (static_cast<unsigned char>(text.front()) & 0x3FU);
        text.remove_prefix(1);
    }
    if (character < lead.smallest || isSurrogate(character) || character > kLastCharacter)
        return kReplacementCharacter;
    return character;
}

} // namespace quillora::panels
