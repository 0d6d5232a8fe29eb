#include "session/video_signature.h"

#include "tests/support/file_contents.h"
#include "tests/support/temporary_folder.h"

#include <gtest/gtest.h>

namespace quillora::session {
namespace {

const std::string kBegin("\x30\x26\xB2\x75\x8E\x66\xCF\x11\xA6\xD9\x00\xAA\x00\x62\xCE\x6C", 16);

class VideoSignatureTest : public testing::Test {
  protected:
    std::filesystem::path with(const std::string& contents)
    {
        const auto path = disk.path() / "video.wmv";
        tests::writeFile(path, contents);
        return path;
    }

    tests::TemporaryFolder disk{};
};

TEST_F(VideoSignatureTest, IsThatOfTheHeaderObject)
{
    EXPECT_TRUE(isWindowsMedia(with(kBegin)));
    EXPECT_TRUE(isWindowsMedia(with(kBegin + "and more")));
}

TEST_F(VideoSignatureTest, IsNotThatOfATextThatNamesOtherFiles)
{
    EXPECT_FALSE(isWindowsMedia(with("ffconcat version 1.0\nfile /etc/passwd\n")));
    EXPECT_FALSE(isWindowsMedia(with("#EXTM3U\nhttp://example.org/\n")));
}

TEST_F(VideoSignatureTest, IsAllOfIt)
{
    for (std::size_t length = 0; length < kBegin.size(); ++length)
        EXPECT_FALSE(isWindowsMedia(with(kBegin.substr(0, length)))) << length;
    auto other = kBegin;
    other.back() = 'm';
    EXPECT_FALSE(isWindowsMedia(with(other)));
}

TEST_F(VideoSignatureTest, IsNeverThatOfALinkAFolderOrNothing)
{
    std::filesystem::create_symlink(with(kBegin), disk.path() / "link.wmv");
    EXPECT_FALSE(isWindowsMedia(disk.path() / "link.wmv"));
    EXPECT_FALSE(isWindowsMedia(disk.path()));
    EXPECT_FALSE(isWindowsMedia(disk.path().string() + "/"));
    EXPECT_FALSE(isWindowsMedia(disk.path() / "missing.wmv"));
    EXPECT_FALSE(isWindowsMedia(""));
}

} // namespace
} // namespace quillora::session
