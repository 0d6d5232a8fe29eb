#include "messages/system_errors.h"

#include <cerrno>
#include <system_error>

namespace quillora::messages {

std::uint32_t ErrnoErrors::lastError() const { return static_cast<std::uint32_t>(errno); }

std::string ErrnoErrors::text(std::uint32_t number) const
{
    return std::generic_category().message(static_cast<int>(number));
}

} // namespace quillora::messages
