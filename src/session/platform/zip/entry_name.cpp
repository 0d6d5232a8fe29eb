#include "session/platform/zip/entry_name.h"

#include <algorithm>

namespace quillora::session {

namespace {

constexpr std::size_t kLongestName = 255;

bool leadsElsewhere(unsigned char byte)
{
    // A colon is a drive or a stream where the separators are backslashes.
    return byte == '/' || byte == '\\' || byte == ':' || byte < 0x20 || byte == 0x7F;
}

} // namespace

bool isPlainName(std::string_view name)
{
    return !name.empty() && name.size() <= kLongestName && name != "." && name != ".." &&
           std::ranges::none_of(name,
                                [](char byte) { return leadsElsewhere(static_cast<unsigned char>(byte)); });
}

} // namespace quillora::session
