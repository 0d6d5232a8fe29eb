#pragma once

#include <algorithm>
#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace quillora::tests {

/// An entry as an archive could have it, also as no writer would write it.
struct ZipBytesEntry {
    std::string name{};
    std::string contents{};
    /// 0 stored, 8 deflated: what it says, not what is done.
    std::uint16_t method = 0;
    /// Unpacked size that it declares; without one, the true one.
    std::optional<std::uint64_t> declaredSize{};
    /// Mode of a Unix system, 0 for none.
    std::uint32_t mode = 0;
    std::uint16_t flags = 0;
};

/// Makes ZIP archives byte by byte, so that tests have those that no library would write.
class ZipBytes {
  public:
    void add(const ZipBytesEntry& entry)
    {
        const auto offset = std::uint32_t(m_bytes.size());
        const auto crc = crc32(entry.contents);
        const std::uint64_t size = entry.declaredSize.value_or(entry.contents.size());
        const std::string large = largeSize(size);
        number(m_bytes, 0x04034B50, 4);
        number(m_bytes, 20, 2);
        common(m_bytes, entry, crc, size);
        m_bytes += entry.name + large + entry.contents;

        number(m_directory, 0x02014B50, 4);
        number(m_directory, entry.mode != 0 ? 0x0314 : 0x0014, 2);
        number(m_directory, 20, 2);
        common(m_directory, entry, crc, size);
        // No comment; the first disk; no internal attributes.
        number(m_directory, 0, 2);
        number(m_directory, 0, 2);
        number(m_directory, 0, 2);
        number(m_directory, std::uint64_t{entry.mode} << 16U, 4);
        number(m_directory, offset, 4);
        m_directory += entry.name + large;
        ++m_count;
    }

    /// Where the directory begins in the archive.
    std::size_t directoryOffset() const { return m_bytes.size(); }

    std::string archive() const
    {
        std::string end;
        number(end, 0x06054B50, 4);
        number(end, 0, 4);
        number(end, m_count & 0xFFFFU, 2);
        number(end, m_count & 0xFFFFU, 2);
        number(end, m_directory.size(), 4);
        number(end, m_bytes.size(), 4);
        number(end, 0, 2);
        return m_bytes + m_directory + (m_count > 0xFFFE ? largeEnd() : "") + end;
    }

  private:
    static void number(std::string& to, std::uint64_t value, int bytes)
    {
        for (int i = 0; i < bytes; ++i)
            to.push_back(static_cast<char>(value >> (8 * i) & 0xFFU));
    }

    static constexpr std::uint64_t kLargeSize = 0xFFFFFFFF;

    /// The extra field for a size that 32 bits don't hold.
    static std::string largeSize(std::uint64_t size)
    {
        std::string field;
        if (size >= kLargeSize) {
            number(field, 1, 2);
            number(field, 8, 2);
            number(field, size, 8);
        }
        return field;
    }

    static void common(std::string& to, const ZipBytesEntry& entry, std::uint32_t crc, std::uint64_t size)
    {
        number(to, entry.flags, 2);
        number(to, entry.method, 2);
        number(to, 0, 4);
        number(to, crc, 4);
        number(to, entry.contents.size(), 4);
        number(to, std::min(size, kLargeSize), 4);
        number(to, entry.name.size(), 2);
        number(to, largeSize(size).size(), 2);
    }

    /// The 64-bit end record and its locator, which counts above 65535 take.
    std::string largeEnd() const
    {
        std::string end;
        number(end, 0x06064B50, 4);
        number(end, 44, 8);
        number(end, 45, 2);
        number(end, 45, 2);
        number(end, 0, 8);
        number(end, m_count, 8);
        number(end, m_count, 8);
        number(end, m_directory.size(), 8);
        number(end, m_bytes.size(), 8);
        number(end, 0x07064B50, 4);
        number(end, 0, 4);
        number(end, m_bytes.size() + m_directory.size(), 8);
        number(end, 1, 4);
        return end;
    }

    static std::uint32_t crc32(const std::string& contents)
    {
        std::uint32_t crc = 0xFFFFFFFF;
        for (const char byte : contents) {
            crc ^= static_cast<unsigned char>(byte);
            for (int bit = 0; bit < 8; ++bit)
                crc = crc >> 1U ^ ((crc & 1U) != 0 ? 0xEDB88320U : 0U);
        }
        return ~crc;
    }

    std::string m_bytes{};
    std::string m_directory{};
    std::uint64_t m_count = 0;
};

} // namespace quillora::tests
