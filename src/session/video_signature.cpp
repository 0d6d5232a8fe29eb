#include "session/video_signature.h"

#include <array>
#include <fstream>

namespace fs = std::filesystem;

namespace quillora::session {

namespace {

/// The identifier of the header object of the Advanced Systems Format.
constexpr std::array<unsigned char, 16> kHeaderObject{0x30, 0x26, 0xB2, 0x75, 0x8E, 0x66, 0xCF, 0x11,
                                                      0xA6, 0xD9, 0x00, 0xAA, 0x00, 0x62, 0xCE, 0x6C};

} // namespace

bool isWindowsMedia(const fs::path& path)
{
    std::error_code failure;
    if (fs::symlink_status(path, failure).type() != fs::file_type::regular)
        return false;
    std::array<unsigned char, kHeaderObject.size()> begin{};
    std::ifstream file(path, std::ios::binary);
    file.read(reinterpret_cast<char*>(begin.data()), std::streamsize(begin.size()));
    return file.gcount() == std::streamsize(begin.size()) && begin == kHeaderObject;
}

} // namespace quillora::session
