#include "audio/text_field.h"

#include <algorithm>

namespace quillora::audio {
namespace {

bool beginsCharacter(char byte) { return (byte & 0xC0) != 0x80; }

} // namespace

std::string paddedField(std::string_view text, int characters)
{
    std::string field;
    int count = 0;
    for (const char byte : text) {
        if (beginsCharacter(byte) && ++count >= characters)
            break;
        field += byte;
    }
    const int taken = static_cast<int>(std::ranges::count_if(field, beginsCharacter));
    field.append(static_cast<std::size_t>(characters - taken), '\0');
    return field;
}

std::string fieldText(std::string_view field) { return std::string(field.substr(0, field.find('\0'))); }

} // namespace quillora::audio
