#include "messages/system_errors.h"

#include <cerrno>
#include <cstring>
#include <system_error>

namespace quillora::messages {

std::uint32_t ErrnoErrors::lastError() const { return static_cast<std::uint32_t>(errno); }

std::string ErrnoErrors::text(std::uint32_t number) const
{
    // For a number that it doesn't know the category makes a text up.
    const int known = static_cast<int>(number);
    return strerrordesc_np(known) ? std::generic_category().message(known) : std::string();
}

} // namespace quillora::messages
