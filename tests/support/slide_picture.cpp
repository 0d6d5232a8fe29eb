#include "tests/support/slide_picture.h"

#include "tests/support/child_process.h"
#include "tests/support/file_contents.h"
#include "tests/support/temporary_folder.h"

#include <cstdio>
#include <cstdlib>
#include <stdexcept>

namespace quillora::tests {

SlidePicture::SlidePicture(const std::filesystem::path& file)
{
    // A portable pixmap: "P6 WIDTH HEIGHT 255" and one blank, then three bytes a pixel.
    const TemporaryFolder folder(TemporaryFolder::Name::plain);
    const std::filesystem::path pixmap = folder.path() / "picture.ppm";
    const int status = runToEnd({"ffmpeg", "-loglevel", "quiet", "-i", "file:" + file.string(), "-frames:v",
                                 "1", "-update", "1", "-pix_fmt", "rgb24", pixmap.string()});
    const std::string contents = status == 0 ? readFile(pixmap) : "";
    int headerLength = 0;
    if (std::sscanf(contents.c_str(), "P6 %d %d 255%n", &m_width, &m_height, &headerLength) != 2)
        throw std::runtime_error("no picture: " + file.string());
    m_bytes.assign(contents.begin() + headerLength + 1, contents.end());
    if (m_bytes.size() != static_cast<std::size_t>(m_width) * static_cast<std::size_t>(m_height) * 3)
        throw std::runtime_error("half a picture: " + file.string());
}

std::uint32_t SlidePicture::at(int x, int y) const
{
    const std::uint8_t* pixel = &m_bytes.at(
        (static_cast<std::size_t>(y) * static_cast<std::size_t>(m_width) + static_cast<std::size_t>(x)) * 3);
    return static_cast<std::uint32_t>(pixel[0]) << 16 | static_cast<std::uint32_t>(pixel[1]) << 8 | pixel[2];
}

bool SlidePicture::isNear(int x, int y, std::uint32_t colour) const
{
    const std::uint32_t found = at(x, y);
    for (const int shift : {0, 8, 16}) {
        if (std::abs(static_cast<int>(found >> shift & 255) - static_cast<int>(colour >> shift & 255)) > 12)
            return false;
    }
    return true;
}

std::string SlidePicture::describe(int x, int y) const
{
    char text[64];
    std::snprintf(text, sizeof text, "#%06x at %d, %d", static_cast<unsigned>(at(x, y)), x, y);
    return text;
}

} // namespace quillora::tests
