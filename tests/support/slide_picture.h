#pragma once

#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

namespace quillora::tests {

/// A PNG or JPEG file, decoded by other code than that which wrote it: ffmpeg. Throws std::runtime_error for
/// a file that is no picture.
class SlidePicture {
  public:
    explicit SlidePicture(const std::filesystem::path& file);

    int width() const { return m_width; }
    int height() const { return m_height; }
    /// As 0xrrggbb.
    std::uint32_t at(int x, int y) const;
    /// Within 12 of each channel of @p colour, 0xrrggbb: JPEG is not exact.
    bool isNear(int x, int y, std::uint32_t colour) const;
    std::string describe(int x, int y) const;

  private:
    int m_width = 0;
    int m_height = 0;
    std::vector<std::uint8_t> m_bytes{};
};

} // namespace quillora::tests
