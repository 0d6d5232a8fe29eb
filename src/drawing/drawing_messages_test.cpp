#include "drawing/drawing_dialogs.h"
#include "drawing/drawing_messages.h"

#include "tests/support/fake_message_boxes.h"

#include <gtest/gtest.h>

namespace quillora::drawing {
namespace {

struct ShowErrorTest : testing::Test {
    tests::CallLog log;
    tests::FakeMessageBoxes boxes{log};

    std::string shownFor(DrawingError code, const std::string& text = {})
    {
        ShowError(boxes, code, text);
        return boxes.shown.back().text;
    }
};

TEST_F(ShowErrorTest, IsACriticalBoxWithAnOkButtonAndNoTitle)
{
    ShowError(boxes, DrawingError::cannotDraw);
    ASSERT_EQ(boxes.shown.size(), 1U);
    EXPECT_EQ(boxes.shown[0].icon, base::BoxIcon::critical);
    EXPECT_EQ(boxes.shown[0].buttons, base::BoxButtons::ok);
    EXPECT_EQ(boxes.shown[0].title, "");
}

TEST_F(ShowErrorTest, ShowsTheTextThatItIsGivenForCodeZero)
{
    EXPECT_EQ(shownFor(static_cast<DrawingError>(0), "Out of paint"), "Out of paint");
}

TEST_F(ShowErrorTest, JoinsTwoLinesByTwoLineEndsForTheOtherCodes)
{
    EXPECT_EQ(shownFor(static_cast<DrawingError>(1)),
              "Cannot write to the disk.\r\n\r\nMake sure the disk is not full or write-protected.");
    EXPECT_EQ(shownFor(static_cast<DrawingError>(2)),
              "Cannot print the file.\r\n\r\nMake sure the print is ready.");
    EXPECT_EQ(shownFor(static_cast<DrawingError>(3)),
              "Cannot open the file.\r\n\r\nThe file may be corrupt or not a valid picture file.");
    EXPECT_EQ(shownFor(static_cast<DrawingError>(4)),
              "Cannot drawing using the selected tool.\r\n\r\nThe needed file may be missing.");
}

TEST(DrawingTexts, AreKeptForFilesThatAreProtected)
{
    EXPECT_EQ(kFileIsProtected, "The file is read-only/hidden. ");
    EXPECT_EQ(kSureToWrite, "Are you sure you want to write into the file ");
    EXPECT_EQ(kAndRemoveProtection, "and remove the read-only/hidden property?");
}

TEST(DrawingDialogs, GetTheirFlags)
{
    DrawingDialogs dialogs;
    dialogs.setFlags();
    EXPECT_EQ(dialogs.cdlSave.Flags, 2054);
    EXPECT_EQ(dialogs.cdlOpen.Flags, 4100);
    EXPECT_EQ(dialogs.cdlFonts.Flags, 65795);
    EXPECT_EQ(dialogs.cdlPrint.Flags, 12);
}

TEST(DrawingDialogs, CarryTheirTextsAsTheyStand)
{
    const DrawingDialogs dialogs;
    EXPECT_EQ(dialogs.cdlSave.DialogTitle, "Save As");
    EXPECT_EQ(dialogs.cdlSave.FileName, "*.brg");
    EXPECT_EQ(dialogs.cdlSave.Filter, "Bitmap Files (*.bmp) |*.bmp");
    EXPECT_EQ(dialogs.cdlOpen.Filter,
              "All Picture Files|*.bmp;*.dib;*.gif;*.jpg; *.wma;*.emf;*.ico;*.cur|Bitmaps "
              "(*.bmp;*.dib)|*.bmp;*.dib|GIF Images (*.gif)|*.gif|JPEG Images (*.jpg)|*.jpg|MetaFiles "
              "(*.wma;*.emf)|*.wma; *.emf|Icons (*.ico;*.cur)|*.ico;*.cur|All Files (*.*)|*.*");
}

} // namespace
} // namespace quillora::drawing
