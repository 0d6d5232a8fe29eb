#pragma once

#include "deck/platform/libreoffice/libreoffice_converter.h"

#include "deck/platform/libreoffice/office_location.h"
#include "tests/support/file_contents.h"
#include "tests/support/flat_deck.h"
#include "tests/support/slide_picture.h"
#include "tests/support/temporary_folder.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <memory>
#include <set>
#include <string>

namespace quillora::deck::libreoffice {

inline std::set<std::string> namesIn(const std::filesystem::path& folder)
{
    std::set<std::string> names;
    for (const std::filesystem::directory_entry& entry : std::filesystem::directory_iterator(folder))
        names.insert(entry.path().filename().string());
    return names;
}

/// The real converter program and the real LibreOffice; decks and pictures in a folder with an awkward name.
class LibreOfficeConverterTest : public ::testing::Test {
  protected:
    LibreOfficeConverterTest() { std::filesystem::create_directory(m_pictures); }

    std::filesystem::path deckFile(const std::string& name, const std::string& contents)
    {
        tests::writeFile(m_folder.path() / name, contents);
        return m_folder.path() / name;
    }
    std::unique_ptr<Presentation> open(const std::filesystem::path& deck)
    {
        m_application = m_converter->createApplication();
        return m_application->Open(deck, ReadOnly::yes, Untitled::yes, WithWindow::no);
    }
    /// The calls of an import, in their order.
    int import(const std::filesystem::path& deck)
    {
        const std::unique_ptr<Presentation> presentation = open(deck);
        const int count = presentation->slideCount();
        presentation->SaveAs(m_pictures, SaveAsFormat::png, EmbedTrueTypeFonts::yes);
        for (int n = 1; n <= count; ++n)
            presentation->slide(n)->Export(m_pictures / ("slide" + std::to_string(n) + ".jpg"), "jpg", 560,
                                           420);
        return count;
    }
    tests::SlidePicture series(int n) const
    {
        return tests::SlidePicture(m_pictures / ("Slide" + std::to_string(n) + ".PNG"));
    }
    /// Replaces the converter by one for @p setup.
    void use(const LibreOfficeSetup& setup) { m_converter = std::make_unique<LibreOfficeConverter>(setup); }

    /// A deck of one slide that is all of one colour, "#rrggbb".
    static std::string plainDeck(const std::string& colour)
    {
        tests::FlatDeck deck(25.4, 19.05);
        deck.slide(deck.rectangle(colour, 0, 0, 25.4, 19.05));
        return deck.text();
    }

    tests::TemporaryFolder m_folder{};
    std::filesystem::path m_pictures = m_folder.path() / "pictures";
    LibreOfficeSetup m_setup{QUILLORA_DECK_CONVERTER, usualOfficeFolders()};
    std::unique_ptr<LibreOfficeConverter> m_converter = std::make_unique<LibreOfficeConverter>(m_setup);
    std::unique_ptr<PresentationApplication> m_application{};
};

} // namespace quillora::deck::libreoffice
