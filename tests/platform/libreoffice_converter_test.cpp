#include "deck/platform/libreoffice/libreoffice_converter.h"

#include "deck/platform/libreoffice/office_location.h"
#include "tests/support/file_contents.h"
#include "tests/support/flat_deck.h"
#include "tests/support/slide_picture.h"
#include "tests/support/temporary_folder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <set>
#include <stdexcept>
#include <string>

namespace quillora::deck::libreoffice {
namespace {

namespace fs = std::filesystem;
using tests::FlatDeck;
using tests::SlidePicture;

std::set<std::string> namesIn(const fs::path& folder)
{
    std::set<std::string> names;
    for (const fs::directory_entry& entry : fs::directory_iterator(folder))
        names.insert(entry.path().filename().string());
    return names;
}

/// The real converter program and the real LibreOffice; decks and pictures in a folder with an awkward name.
class LibreOfficeConverterTest : public ::testing::Test {
  protected:
    LibreOfficeConverterTest() { fs::create_directory(m_pictures); }

    fs::path deckFile(const std::string& name, const std::string& contents)
    {
        tests::writeFile(m_folder.path() / name, contents);
        return m_folder.path() / name;
    }
    std::unique_ptr<Presentation> open(const fs::path& deck)
    {
        m_application = m_converter.createApplication();
        return m_application->Open(deck, ReadOnly::yes, Untitled::yes, WithWindow::no);
    }
    /// The calls of an import, in their order.
    int import(const fs::path& deck)
    {
        const std::unique_ptr<Presentation> presentation = open(deck);
        const int count = presentation->slideCount();
        presentation->SaveAs(m_pictures, SaveAsFormat::png, EmbedTrueTypeFonts::yes);
        for (int n = 1; n <= count; ++n)
            presentation->slide(n)->Export(m_pictures / ("slide" + std::to_string(n) + ".jpg"), "jpg", 560,
                                           420);
        return count;
    }
    SlidePicture series(int n) const
    {
        return SlidePicture(m_pictures / ("Slide" + std::to_string(n) + ".PNG"));
    }

    tests::TemporaryFolder m_folder{};
    fs::path m_pictures = m_folder.path() / "pictures";
    LibreOfficeSetup m_setup{QUILLORA_DECK_CONVERTER, usualOfficeFolders()};
    LibreOfficeConverter m_converter{m_setup};
    std::unique_ptr<PresentationApplication> m_application{};
};

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

} // namespace
} // namespace quillora::deck::libreoffice
