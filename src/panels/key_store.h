#pragma once

#include <cstdint>
#include <string>

namespace quillora::panels {

/// The root under which the settings of the whole machine stand.
inline constexpr std::uint32_t HKEY_LOCAL_MACHINE = 0x80000002;
/// Everything but making links.
inline constexpr std::uint32_t kAllAccess = 0x2003F;

/// Kinds of value that GetKeyValue understands. A store may give others.
inline constexpr std::uint32_t kTextValue = 1;
inline constexpr std::uint32_t kNumberValue = 4;

/// A tree of named settings, as the system information launcher reads it. On the thread of its caller.
class KeyStore {
  public:
    using Handle = std::uintptr_t;
    struct Value {
        std::uint32_t type = 0;
        /// A text with its NUL, or a number's bytes from the lowest.
        std::string bytes{};
    };

    virtual ~KeyStore() = default;
    /// 0 on success, as the two others; @p key is set then.
    virtual long RegOpenKeyExA(std::uint32_t root, const std::string& name, std::uint32_t access,
                               Handle& key) = 0;
    /// Fails for a value of more than @p capacity bytes.
    virtual long RegQueryValueExA(Handle key, const std::string& name, std::size_t capacity,
                                  Value& value) = 0;
    virtual long RegCloseKey(Handle key) = 0;
};

} // namespace quillora::panels
