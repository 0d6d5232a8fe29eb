#include "audio/text_field.h"

#include "base/characters.h"

namespace quillora::audio {

std::string paddedField(std::string_view text, int characters)
{
    const auto length = static_cast<std::size_t>(characters);
    std::string field(base::firstCharacters(text, length - 1));
    field.append(length - base::characterCount(field), '\0');
    return field;
}

std::string fieldText(std::string_view field) { return std::string(field.substr(0, field.find('\0'))); }

} // namespace quillora::audio
