#include "tests/platform/libreoffice_fixture.h"

#include "tests/support/child_process.h"
#include "tests/support/structural_similarity.h"

#include <stdexcept>

namespace quillora::deck::libreoffice {
namespace {

namespace fs = std::filesystem;
using tests::FlatDeck;
using tests::SlidePicture;

TEST_F(LibreOfficeConverterTest, ADeckBecomesTwoPicturesASlideAndNothingElse)
{
    FlatDeck deck(25.4, 14.2875);
    deck.slide(deck.rectangle("#ff0000", 0, 0, 12.7, 14.2875)).slide("");
    EXPECT_EQ(import(deckFile("deck.fodp", deck.text())), 2);
    EXPECT_EQ(namesIn(m_pictures),
              (std::set<std::string>{"Slide1.PNG", "Slide2.PNG", "slide1.jpg", "slide2.jpg"}));
}

TEST_F(LibreOfficeConverterTest, TheSeriesIs1280WideInTheDecksOwnRatioAndTheExportIs560By420)
{
    FlatDeck deck(25.4, 14.2875);
    deck.slide(deck.rectangle("#ff0000", 0, 0, 12.7, 14.2875));
    import(deckFile("deck.fodp", deck.text()));
    const SlidePicture png = series(1);
    EXPECT_EQ(png.width(), 1280);
    EXPECT_EQ(png.height(), 720);
    const SlidePicture jpeg(m_pictures / "slide1.jpg");
    EXPECT_EQ(jpeg.width(), 560);
    EXPECT_EQ(jpeg.height(), 420);
    // Stretched, not letterboxed: the red half is half of either, up to the border.
    for (const SlidePicture* picture : {&png, &jpeg}) {
        EXPECT_TRUE(picture->isNear(2, 2, 0xff0000)) << picture->describe(2, 2);
        EXPECT_TRUE(picture->isNear(picture->width() / 2 - 4, picture->height() - 3, 0xff0000));
        EXPECT_TRUE(picture->isNear(picture->width() / 2 + 4, 2, 0xffffff));
    }
}

TEST_F(LibreOfficeConverterTest, AHiddenSlideIsASlideLikeTheOthers)
{
    FlatDeck deck(25.4, 19.05);
    deck.slide("").hiddenSlide(deck.rectangle("#00ff00", 0, 0, 25.4, 19.05)).slide("");
    EXPECT_EQ(import(deckFile("deck.fodp", deck.text())), 3);
    EXPECT_TRUE(series(2).isNear(640, 480, 0x00ff00));
    EXPECT_TRUE(series(3).isNear(640, 480, 0xffffff));
}

TEST_F(LibreOfficeConverterTest, NoEditingMarksShow)
{
    FlatDeck deck(25.4, 19.05);
    deck.slide(deck.emptyTitle(2, 2, 20, 4));
    import(deckFile("deck.fodp", deck.text()));
    const SlidePicture picture = series(1);
    int marked = 0;
    for (int y = 0; y < picture.height(); ++y)
        for (int x = 0; x < picture.width(); ++x)
            marked += picture.isNear(x, y, 0xffffff) ? 0 : 1;
    EXPECT_EQ(marked, 0) << "pixels of a slide with nothing on it that are not white";
}

TEST_F(LibreOfficeConverterTest, TheSampleLectureLooksLikeItsPdf)
{
    const fs::path sample = fs::path(QUILLORA_ASSETS) / "sample_lecture.pptx";
    ASSERT_EQ(import(sample), 10);
    const tests::TemporaryFolder folder(tests::TemporaryFolder::Name::plain);
    ASSERT_EQ(tests::runToEnd(
                  {"soffice", "-env:UserInstallation=file://" + (folder.path() / "profile").string(),
                   "--headless", "--convert-to", "pdf", "--outdir", folder.path().string(), sample.string()},
                  {}, std::chrono::seconds(90)),
              0);
    ASSERT_EQ(
        tests::runToEnd({"pdftoppm", "-png", "-scale-to-x", "1280", "-scale-to-y", "720",
                         (folder.path() / "sample_lecture.pdf").string(), (folder.path() / "page").string()},
                        {}, std::chrono::seconds(90)),
        0);
    for (int n = 1; n <= 10; ++n) {
        const std::string page = std::string(n < 10 ? "page-0" : "page-") + std::to_string(n) + ".png";
        EXPECT_GE(tests::structuralSimilarity(series(n), SlidePicture(folder.path() / page)), 0.93)
            << "slide " << n;
    }
}

TEST_F(LibreOfficeConverterTest, ADeckIsFoundUnderAnAwkwardPath)
{
    // The whole name has as many bytes as a file system takes.
    std::string name = "a deck's \"first\" 100% #1 größe 講義 %20 ";
    name += std::string(250 - name.size() - 4, 'x') + ".ppt";
    EXPECT_EQ(import(deckFile(name, plainDeck("#0000ff"))), 1);
    EXPECT_TRUE(series(1).isNear(640, 480, 0x0000ff));
}

TEST_F(LibreOfficeConverterTest, TheContentDecidesNotTheExtension)
{
    for (const char* name : {"deck.ppt", "deck.jpg", "deck"})
        EXPECT_EQ(open(deckFile(name, plainDeck("#0000ff")))->slideCount(), 1) << name;
}

TEST_F(LibreOfficeConverterTest, ADeckOfManySlidesIsWholeAndInOrder)
{
    constexpr int kSlides = 120;
    FlatDeck deck(25.4, 19.05);
    for (int n = 1; n <= kSlides; ++n)
        deck.slide(deck.rectangle("#ff0000", 0, 0, 25.4 * n / kSlides, 19.05));
    EXPECT_EQ(import(deckFile("deck.fodp", deck.text())), kSlides);
    EXPECT_EQ(namesIn(m_pictures).size(), 2U * kSlides);
    for (const int n : {1, 2, 59, 60, 61, 119}) {
        const int edge = 1280 * n / kSlides;
        EXPECT_TRUE(series(n).isNear(edge - 3, 480, 0xff0000)) << n;
        EXPECT_TRUE(series(n).isNear(edge + 3, 480, 0xffffff)) << n;
    }
}

TEST_F(LibreOfficeConverterTest, PagesOfAllSizesArePainted)
{
    struct Page {
        double widthCm;
        double heightCm;
        int width;
        int height;
    };
    for (const Page& page : {Page{250, 200, 1280, 1024}, Page{2, 1.5, 1280, 960}, Page{10, 25, 1280, 3200},
                             Page{2, 100, 102, 5120}}) {
        FlatDeck deck(page.widthCm, page.heightCm);
        deck.slide(deck.rectangle("#ff0000", 0, 0, page.widthCm, page.heightCm));
        import(deckFile("deck.fodp", deck.text()));
        EXPECT_NEAR(series(1).width(), page.width, 2) << page.widthCm;
        EXPECT_NEAR(series(1).height(), page.height, 8) << page.widthCm;
        EXPECT_TRUE(series(1).isNear(50, 50, 0xff0000)) << page.widthCm;
    }
}

TEST_F(LibreOfficeConverterTest, AnExportTakesAnySizeAndNeedsNoSeries)
{
    const std::unique_ptr<Presentation> deck = open(deckFile("deck.fodp", plainDeck("#00ff00")));
    deck->slide(1)->Export(m_pictures / "a.jpg", "jpg", 560, 420);
    deck->slide(1)->Export(m_pictures / "b.jpg", "jpg", 33, 2000);
    EXPECT_TRUE(SlidePicture(m_pictures / "a.jpg").isNear(300, 200, 0x00ff00));
    EXPECT_EQ(SlidePicture(m_pictures / "b.jpg").width(), 33);
    EXPECT_EQ(SlidePicture(m_pictures / "b.jpg").height(), 2000);
}

TEST_F(LibreOfficeConverterTest, AnExportThatFailsLeavesTheOtherSlidesAlone)
{
    FlatDeck two(25.4, 19.05);
    two.slide("").slide("");
    const std::unique_ptr<Presentation> deck = open(deckFile("deck.fodp", two.text()));
    deck->SaveAs(m_pictures, SaveAsFormat::png, EmbedTrueTypeFonts::yes);
    EXPECT_THROW(deck->slide(0), std::runtime_error);
    EXPECT_THROW(deck->slide(3), std::runtime_error);
    EXPECT_THROW(deck->slide(1)->Export(m_pictures / "missing" / "slide1.jpg", "jpg", 560, 420),
                 std::exception);
    EXPECT_THROW(deck->slide(1)->Export(m_pictures / "slide1.gif", "gif", 560, 420), std::runtime_error);
    EXPECT_THROW(deck->slide(1)->Export(m_pictures / "slide1.jpg", "jpg", 0, 420), std::runtime_error);
    deck->slide(2)->Export(m_pictures / "slide2.jpg", "jpg", 560, 420);
    EXPECT_EQ(namesIn(m_pictures), (std::set<std::string>{"Slide1.PNG", "Slide2.PNG", "slide2.jpg"}));
}

TEST_F(LibreOfficeConverterTest, ASeriesThatCannotBeWrittenThrowsAndTheExportsStillWork)
{
    const std::unique_ptr<Presentation> deck = open(deckFile("deck.fodp", plainDeck("#00ff00")));
    EXPECT_THROW(deck->SaveAs(m_pictures / "missing", SaveAsFormat::png, EmbedTrueTypeFonts::yes),
                 std::exception);
    deck->slide(1)->Export(m_pictures / "slide1.jpg", "jpg", 560, 420);
    EXPECT_TRUE(SlidePicture(m_pictures / "slide1.jpg").isNear(300, 200, 0x00ff00));
}

TEST_F(LibreOfficeConverterTest, OneApplicationOpensSeveralDecksAndPreparingTwiceIsHarmless)
{
    m_converter->prepare();
    m_converter->prepare();
    const std::unique_ptr<Presentation> first = open(deckFile("first.fodp", plainDeck("#ff0000")));
    const std::unique_ptr<Presentation> second = m_application->Open(
        deckFile("second.fodp", plainDeck("#0000ff")), ReadOnly::yes, Untitled::yes, WithWindow::no);
    second->SaveAs(m_pictures, SaveAsFormat::png, EmbedTrueTypeFonts::yes);
    EXPECT_TRUE(series(1).isNear(640, 480, 0x0000ff));
    first->SaveAs(m_pictures, SaveAsFormat::png, EmbedTrueTypeFonts::yes);
    EXPECT_TRUE(series(1).isNear(640, 480, 0xff0000));
}

} // namespace
} // namespace quillora::deck::libreoffice
