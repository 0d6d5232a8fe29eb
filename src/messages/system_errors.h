#pragma once

#include <cstdint>
#include <string>

namespace quillora::messages {

/// Numbers and texts of the system's errors.
class SystemErrors {
  public:
    virtual ~SystemErrors() = default;
    /// That of the operation of this thread which failed last.
    virtual std::uint32_t lastError() const = 0;
    /// What the system says of the number; empty when it has nothing to say.
    virtual std::string text(std::uint32_t number) const = 0;
};

/// By the C library's `errno`, which adapters set as its functions do.
class ErrnoErrors : public SystemErrors {
  public:
    std::uint32_t lastError() const override;
    std::string text(std::uint32_t number) const override;
};

} // namespace quillora::messages
