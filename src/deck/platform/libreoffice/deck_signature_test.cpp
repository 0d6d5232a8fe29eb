#include "deck/platform/libreoffice/deck_signature.h"

#include <gtest/gtest.h>

namespace quillora::deck::libreoffice {
namespace {

TEST(DeckSignature, TheThreeContainersOfDecksAreKnown)
{
    EXPECT_TRUE(deckSignature("\xD0\xCF\x11\xE0\xA1\xB1\x1A\xE1 and more"));
    EXPECT_TRUE(deckSignature("PK\x03\x04 and more"));
    EXPECT_TRUE(deckSignature("<?xml version=\"1.0\"?>\n<office:document xmlns:office=\"...\">"));
    EXPECT_TRUE(deckSignature("\xEF\xBB\xBF<?xml version=\"1.0\"?>\n<office:document>"));
}

TEST(DeckSignature, WhatIsNoDeckIsNotTakenForOne)
{
    for (const char* beginning :
         {"", "P", "PK", "Dear reader,", "\x89PNG\r\n\x1a\n", "GIF89a", "\xFF\xD8\xFF\xE0", "%PDF-1.6",
          "{\\rtf1", "<html>", "<?xml version=\"1.0\"?><svg/>",
          "\x7F"
          "ELF"})
        EXPECT_FALSE(deckSignature(beginning)) << beginning;
}

} // namespace
} // namespace quillora::deck::libreoffice
