#include "tests/forms/form_fixture.h"

#include "forms/image_surface_widget.h"
#include "tests/support/file_contents.h"

#include <stdexcept>

using namespace quillora;
using forms::ImageSurfaceWidget;
using tests::busyPicture;
using tests::plainPicture;

namespace {

class ImageSurfaceTest : public testing::Test {
  protected:
    std::filesystem::path save(const QImage& picture, const char* name, const char* format = "PNG")
    {
        const auto path = folder.path() / name;
        EXPECT_TRUE(picture.save(tests::text(path), format));
        return path;
    }

    /// A PNG whose head says this size, with nothing of the picture after it.
    std::filesystem::path pngThatClaims(std::uint32_t width, std::uint32_t height)
    {
        std::string contents = tests::readFile(save(plainPicture({1, 1}, Qt::red), "small.png"));
        for (int i = 0; i < 4; ++i) {
            contents[std::size_t(16 + i)] = char(width >> (24 - 8 * i));
            contents[std::size_t(20 + i)] = char(height >> (24 - 8 * i));
        }
        // The check sum of the head covers the size.
        std::uint32_t crc = 0xFFFFFFFFU;
        for (std::size_t i = 12; i < 29; ++i) {
            crc ^= std::uint8_t(contents[i]);
            for (int bit = 0; bit < 8; ++bit)
                crc = (crc >> 1) ^ (0xEDB88320U & (0U - (crc & 1U)));
        }
        crc = ~crc;
        for (int i = 0; i < 4; ++i)
            contents[std::size_t(29 + i)] = char(crc >> (24 - 8 * i));
        tests::writeFile(folder.path() / "claims.png", contents);
        return folder.path() / "claims.png";
    }

    void expectRefusedAndKept(const std::filesystem::path& file)
    {
        const QImage before = surface.picture();
        EXPECT_THROW(surface.LoadFile(file), std::runtime_error) << file;
        EXPECT_EQ(surface.picture(), before);
    }

    tests::TemporaryFolder folder;
    ImageSurfaceWidget surface{ImageSurfaceWidget::Display::actualSize, nullptr};
    ImageSurfaceWidget preview{ImageSurfaceWidget::Display::fitted, nullptr};
};

} // namespace

TEST_F(ImageSurfaceTest, HoldsThePixelsOfTheFile)
{
    const QImage picture = busyPicture({64, 36});
    surface.LoadFile(save(picture, "Slide1.PNG"));
    EXPECT_EQ(surface.picture(), picture);
}

TEST_F(ImageSurfaceTest, TellsThePicturesKindByItsContent)
{
    surface.LoadFile(save(plainPicture({40, 30}, Qt::blue), "Slide1.PNG", "JPEG"));
    EXPECT_EQ(surface.picture().size(), QSize(40, 30));
    surface.LoadFile(save(plainPicture({20, 10}, Qt::blue), "slide1.jpg", "PNG"));
    EXPECT_EQ(surface.picture().size(), QSize(20, 10));
}

TEST_F(ImageSurfaceTest, RefusesWhatIsNoPictureAndKeepsWhatItHad)
{
    surface.LoadFile(save(busyPicture({16, 9}), "good.png"));
    const std::string good = tests::readFile(folder.path() / "good.png");
    tests::writeFile(folder.path() / "empty.png", "");
    tests::writeFile(folder.path() / "text.png", "This is no picture.");
    tests::writeFile(folder.path() / "half.png", good.substr(0, good.size() / 2));
    tests::writeFile(folder.path() / "drawing.png",
                     "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"9\" height=\"9\"></svg>");
    for (const char* name : {"empty.png", "text.png", "half.png", "drawing.png", "missing.png"})
        expectRefusedAndKept(folder.path() / name);
    expectRefusedAndKept(folder.path());
    expectRefusedAndKept({});
}

TEST_F(ImageSurfaceTest, RefusesAbsurdSizesBeforeTakingMemoryForThem)
{
    surface.LoadFile(save(busyPicture({16, 9}), "good.png"));
    QElapsedTimer clock;
    clock.start();
    expectRefusedAndKept(pngThatClaims(30000, 30000));
    expectRefusedAndKept(pngThatClaims(1000000, 1));
    expectRefusedAndKept(pngThatClaims(8000, 8000));
    EXPECT_LT(clock.elapsed(), 2000);
}

TEST_F(ImageSurfaceTest, ShowsWhatIsTransparentAsWhite)
{
    QImage picture(4, 4, QImage::Format_ARGB32);
    picture.fill(Qt::transparent);
    surface.LoadFile(save(picture, "transparent.png"));
    EXPECT_EQ(surface.picture(), plainPicture({4, 4}, Qt::white));
}

TEST_F(ImageSurfaceTest, StretchesWithNoRegardToTheRatio)
{
    surface.LoadFile(save(plainPicture({400, 100}, Qt::red), "wide.png"));
    surface.ResizeImage(747, 420);
    EXPECT_EQ(surface.picture(), plainPicture({747, 420}, Qt::red));
    surface.ResizeImage(560, 420);
    EXPECT_EQ(surface.picture().size(), QSize(560, 420));
    surface.ResizeImage(1, 1);
    EXPECT_EQ(surface.picture().size(), QSize(1, 1));
}

TEST_F(ImageSurfaceTest, StretchesSmoothly)
{
    QImage lines(1280, 720, QImage::Format_RGB32);
    for (int y = 0; y < lines.height(); ++y)
        for (int x = 0; x < lines.width(); ++x)
            lines.setPixel(x, y, y % 2 == 0 ? qRgb(0, 0, 0) : qRgb(255, 255, 255));
    surface.LoadFile(save(lines, "lines.png"));
    surface.ResizeImage(747, 420);
    // Lines finer than the pixels become grey; picking single rows would leave black and white.
    for (const int y : {50, 51, 52, 200, 201})
        EXPECT_NEAR(qGray(surface.picture().pixel(300, y)), 128, 60) << y;
}

TEST_F(ImageSurfaceTest, RefusesToStretchToNothingOrToTooMuch)
{
    const QImage picture = busyPicture({16, 9});
    surface.LoadFile(save(picture, "good.png"));
    for (const auto& [width, height] : {std::pair{0, 10}, {10, 0}, {-5, 10}, {100000, 10}, {16000, 16000}})
        EXPECT_THROW(surface.ResizeImage(width, height), std::runtime_error) << width << " " << height;
    EXPECT_EQ(surface.picture(), picture);
}

TEST_F(ImageSurfaceTest, CannotStretchOrDrawOnNothing)
{
    EXPECT_THROW(surface.ResizeImage(10, 10), std::runtime_error);
    EXPECT_THROW(surface.DrawSegment(0, 0, 1, 1), std::runtime_error);
}

TEST_F(ImageSurfaceTest, BecomesABlankPicture)
{
    surface.LoadFile(save(busyPicture({16, 9}), "good.png"));
    surface.NewImage(747, 420);
    EXPECT_EQ(surface.picture(), plainPicture({747, 420}, Qt::white));
    EXPECT_THROW(surface.NewImage(0, 5), std::runtime_error);
    EXPECT_THROW(surface.NewImage(50000, 50000), std::runtime_error);
    EXPECT_EQ(surface.picture(), plainPicture({747, 420}, Qt::white));
}

TEST_F(ImageSurfaceTest, TakesAPenLineIntoItsPixels)
{
    surface.NewImage(9, 5);
    surface.DrawSegment(2, 2, 6, 2);
    std::string seen;
    for (int y = 0; y < 5; ++y) {
        for (int x = 0; x < 9; ++x)
            seen += qGray(surface.picture().pixel(x, y)) < 128 ? '#' : '.';
        seen += '\n';
    }
    EXPECT_EQ(seen, ".........\n"
                    ".........\n"
                    "..#####..\n"
                    ".........\n"
                    ".........\n");
}

TEST_F(ImageSurfaceTest, TakesLinesThatLeaveThePicture)
{
    surface.NewImage(20, 20);
    surface.DrawSegment(-30000, 10, 30000, 10);
    EXPECT_LT(qGray(surface.picture().pixel(0, 10)), 128);
    EXPECT_LT(qGray(surface.picture().pixel(19, 10)), 128);
    EXPECT_NO_THROW(surface.DrawSegment(-2147483647, -2147483647, 2147483647, 2147483647));
}

TEST_F(ImageSurfaceTest, LosesPenLinesWithThePicture)
{
    const QImage picture = busyPicture({64, 36});
    const auto file = save(picture, "slide.png");
    surface.LoadFile(file);
    surface.DrawSegment(0, 0, 60, 30);
    EXPECT_NE(surface.picture(), picture);
    surface.LoadFile(file);
    EXPECT_EQ(surface.picture(), picture);
}

TEST_F(ImageSurfaceTest, LosesPenLinesOfAStretchedPictureWhenTheSameIsLoadedAgain)
{
    const auto file = save(busyPicture({64, 36}), "slide.png");
    const auto show = [&] {
        surface.LoadFile(file);
        surface.ResizeImage(128, 72);
        return surface.picture();
    };
    const QImage clean = show();
    surface.DrawSegment(0, 0, 120, 60);
    EXPECT_NE(surface.picture(), clean);
    EXPECT_EQ(show(), clean);
}

TEST_F(ImageSurfaceTest, KeepsPenLinesWhenItIsStretched)
{
    surface.LoadFile(save(plainPicture({64, 36}, Qt::white), "slide.png"));
    surface.ResizeImage(128, 72);
    surface.DrawSegment(0, 0, 120, 60);
    surface.ResizeImage(64, 36);
    EXPECT_NE(surface.picture(), plainPicture({64, 36}, Qt::white));
}

TEST_F(ImageSurfaceTest, ShowsAFileThatWasWrittenAnewUnderItsName)
{
    surface.LoadFile(save(plainPicture({64, 36}, Qt::red), "slide.png"));
    surface.LoadFile(save(plainPicture({64, 36}, Qt::blue), "slide.png"));
    EXPECT_EQ(surface.picture(), plainPicture({64, 36}, Qt::blue));
}

TEST_F(ImageSurfaceTest, PreviewTakesThePictureOfTheLastFileAndSize)
{
    preview.LoadFile(save(busyPicture({32, 18}), "first.png"));
    preview.ResizeImage(746, 420);
    preview.LoadFile(save(plainPicture({64, 36}, Qt::red), "second.png"));
    preview.ResizeImage(373, 210);
    tests::settle(20);
    EXPECT_EQ(preview.picture(), plainPicture({373, 210}, Qt::red));
}

TEST_F(ImageSurfaceTest, PreviewDoesNotNeedTheFileOnceItIsLoaded)
{
    const QImage picture = busyPicture({32, 18});
    const auto file = save(picture, "gone.png");
    preview.LoadFile(file);
    std::filesystem::remove(file);
    EXPECT_EQ(preview.picture(), picture);
}

TEST_F(ImageSurfaceTest, PreviewRefusesWhatIsNoPictureAndKeepsADamagedOneOut)
{
    const QImage picture = busyPicture({64, 36});
    const auto file = save(picture, "good.png");
    preview.LoadFile(file);
    tests::writeFile(folder.path() / "text.png", "This is no picture.");
    EXPECT_THROW(preview.LoadFile(folder.path() / "text.png"), std::runtime_error);
    EXPECT_THROW(preview.LoadFile(folder.path() / "missing.png"), std::runtime_error);
    EXPECT_THROW(preview.LoadFile(pngThatClaims(30000, 30000)), std::runtime_error);
    const std::string good = tests::readFile(file);
    tests::writeFile(folder.path() / "half.png", good.substr(0, good.size() / 2));
    preview.LoadFile(folder.path() / "half.png");
    preview.ResizeImage(746, 420);
    tests::settle(20);
    EXPECT_EQ(preview.picture(), picture);
}

TEST_F(ImageSurfaceTest, PreviewForgetsAnUndecodedFileWhenItBecomesBlank)
{
    preview.LoadFile(save(busyPicture({64, 36}), "good.png"));
    preview.NewImage(10, 10);
    tests::settle(20);
    EXPECT_EQ(preview.picture(), plainPicture({10, 10}, Qt::white));
}
