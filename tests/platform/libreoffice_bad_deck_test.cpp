#include "tests/platform/libreoffice_fixture.h"

#include "tests/support/child_process.h"

#include <sys/stat.h>

#include <random>
#include <stdexcept>

namespace quillora::deck::libreoffice {
namespace {

namespace fs = std::filesystem;

std::string flatDocument(const std::string& kind)
{
    return "<?xml version=\"1.0\"?><office:document "
           "xmlns:office=\"urn:oasis:names:tc:opendocument:xmlns:office:1.0\""
           " office:version=\"1.2\" office:mimetype=\"application/vnd.oasis.opendocument." +
           kind + "\"><office:body><office:" + (kind == "graphics" ? "drawing" : kind) +
           "/></office:body></office:document>";
}

TEST_F(LibreOfficeConverterTest, WhatIsNoDeckIsRefused)
{
    struct Impostor {
        const char* name;
        std::string contents;
    };
    const Impostor impostors[] = {
        {"empty.ppt", ""},
        {"letter.ppt", "Dear reader, this is no deck."},
        {"picture.ppt", tests::readFile(fs::path(QUILLORA_ASSETS) / "PPT.png")},
        {"page.pptx", "<html><body><h1>No deck</h1></body></html>"},
        {"text.pptx", flatDocument("text")},
        {"drawing.pptx", flatDocument("graphics")},
        {"archive.pptx", std::string("PK\x03\x04", 4) + std::string(2000, '\x55')},
        {"compound.ppt", std::string("\xD0\xCF\x11\xE0\xA1\xB1\x1A\xE1", 8) + std::string(4000, '\x55')},
    };
    for (const Impostor& impostor : impostors)
        EXPECT_THROW(open(deckFile(impostor.name, impostor.contents)), std::runtime_error) << impostor.name;
    EXPECT_EQ(import(deckFile("deck.fodp", plainDeck("#ff0000"))), 1) << "after all those";
}

TEST_F(LibreOfficeConverterTest, WhatIsNoFileIsRefusedWithoutWaiting)
{
    EXPECT_THROW(open(m_folder.path() / "missing.ppt"), std::runtime_error);
    EXPECT_THROW(open(m_folder.path()), std::runtime_error);
    EXPECT_THROW(open(""), std::runtime_error);
    EXPECT_THROW(open("/dev/zero"), std::runtime_error);
    const fs::path pipe = m_folder.path() / "pipe.ppt";
    ASSERT_EQ(::mkfifo(pipe.c_str(), 0600), 0);
    EXPECT_THROW(open(pipe), std::runtime_error);
}

TEST_F(LibreOfficeConverterTest, ADamagedDeckGivesPicturesOrAFailureAndTheNextDeckWorks)
{
    const std::string sound = tests::readFile(fs::path(QUILLORA_ASSETS) / "sample_lecture.pptx");
    std::mt19937 random(4711);
    std::uniform_int_distribution<std::size_t> anywhere(4, sound.size() - 1);
    for (int damage = 0; damage < 4; ++damage) {
        std::string contents = sound;
        if (damage % 2 == 0)
            contents.resize(anywhere(random));
        else
            contents[anywhere(random)] ^= 0x40;
        try {
            EXPECT_LE(import(deckFile("damaged.pptx", contents)), 10);
        } catch (const std::runtime_error&) {
        }
    }
    EXPECT_EQ(import(deckFile("deck.fodp", plainDeck("#ff0000"))), 1);
}

/// The sample deck, with the list of its slides taken out.
fs::path deckThatNamesNoSlide(const fs::path& folder)
{
    const fs::path deck = folder / "none.pptx";
    fs::copy_file(fs::path(QUILLORA_ASSETS) / "sample_lecture.pptx", deck);
    const std::string script =
        "import re,sys,zipfile\n"
        "old=zipfile.ZipFile(sys.argv[1]); parts={n:old.read(n) for n in old.namelist()}\n"
        "name='ppt/presentation.xml'\n"
        "parts[name]=re.sub(rb'<p:sldIdLst>.*?</p:sldIdLst>',b'',parts[name],flags=re.S)\n"
        "new=zipfile.ZipFile(sys.argv[1],'w')\n"
        "for n in parts: new.writestr(n,parts[n])\n"
        "new.close()\n";
    if (tests::runToEnd({"/usr/bin/python3", "-c", script, deck.string()}) != 0)
        throw std::runtime_error("the deck can't be made");
    return deck;
}

TEST_F(LibreOfficeConverterTest, ADeckThatNamesNoSlideHasNone)
{
    EXPECT_EQ(open(deckThatNamesNoSlide(m_folder.path()))->slideCount(), 0);
}

/// A flat deck is no archive whose list of slides could be read.
TEST_F(LibreOfficeConverterTest, AFlatDeckWithoutSlidesHasTheBlankOneThatLibreOfficeGivesIt)
{
    EXPECT_EQ(import(deckFile("none.fodp", tests::FlatDeck(25.4, 19.05).text())), 1);
    EXPECT_TRUE(series(1).isNear(640, 480, 0xffffff));
}

/// Decks that are kept beside the repository where they are at hand.
struct KnownDeck {
    const char* name;
    /// 0: broken or encrypted.
    int slides;
};

class KnownDecks : public LibreOfficeConverterTest, public ::testing::WithParamInterface<KnownDeck> {};

TEST_P(KnownDecks, ImportsWithItsCountOrIsRefused)
{
    const fs::path deck = fs::path(QUILLORA_DECKS) / GetParam().name;
    if (!fs::exists(deck))
        GTEST_SKIP() << "not here: " << deck;
    if (GetParam().slides == 0) {
        EXPECT_THROW(open(deck), std::runtime_error);
        return;
    }
    EXPECT_EQ(import(deck), GetParam().slides);
    EXPECT_EQ(namesIn(m_pictures).size(), 2U * static_cast<std::size_t>(GetParam().slides));
    EXPECT_GE(series(GetParam().slides).width(), 1280);
}

INSTANTIATE_TEST_SUITE_P(
    LibreOffice, KnownDecks,
    ::testing::Values(KnownDeck{"44770.ppt", 19}, KnownDeck{"60810.pptx", 28}, KnownDeck{"PPT95.ppt", 42},
                      KnownDeck{"alterman_security.ppt", 23},
                      KnownDeck{"ae.ac.uaeu.faculty_nafaachbili_GeomLec1.pptx", 14},
                      KnownDeck{"tika-2605.pptx", 14}, KnownDeck{"with_japanese.pptx", 1},
                      KnownDeck{"Password_Protected-hello.ppt", 0},
                      KnownDeck{"clusterfuzz-testcase-minimized-POIHSLFFuzzer-4838893004128256.ppt", 0}),
    [](const auto& tested) {
        std::string name = tested.param.name;
        std::erase_if(name, [](unsigned char letter) { return std::isalnum(letter) == 0; });
        return name;
    });

} // namespace
} // namespace quillora::deck::libreoffice
