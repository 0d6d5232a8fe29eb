// The parts that stand on the stage, joined as the program joins them.

#include "app/stage_parts.h"
#include "forms/camera_panel.h"
#include "forms/stage_widget.h"
#include "forms/text_board_widget.h"
#include "tests/forms/form_fixture.h"
#include "tests/support/fake_camera_connection.h"
#include "tests/support/fake_common_dialog.h"
#include "tests/support/fake_message_boxes.h"
#include "tests/support/fake_slide_show.h"
#include "tests/support/file_contents.h"

#include <QAbstractButton>
#include <QTest>

using namespace quillora;

namespace {

class NoDeck : public session::DeckOpening {
  public:
    void openSlides() override {}
};

class StagePartsTest : public tests::FormTest {
  protected:
    StagePartsTest() { tests::writeFile(noPicture, "this is no picture"); }

    void clickCaption(const char* name) { QTest::mouseClick(find(name), Qt::LeftButton); }
    bool backdropBecomes(QColor colour)
    {
        // In the strip beside the media, below the camera and above the button.
        return tests::waitUntil([&] { return grabStage().pixelColor(650, 300) == colour; });
    }

    const std::filesystem::path noPicture = folder.path() / "text.jpg";
    session::SessionFields fields;
    tests::CallLog log;
    tests::FakeSlideShow slides{log};
    NoDeck deck;
    tests::FakeCameraConnection camera;
    tests::FakeCommonDialog dialog{log};
    tests::FakeMessageBoxes boxes{log};
    session::OperationTable operations;
    app::StageParts parts{{form, fields, slides, ebDemo, deck, camera, dialog, boxes, operations}};
};

} // namespace

TEST_F(StagePartsTest, TheButtonForTheBackdrop_TakesABmpThoughItDoesNotOfferIt)
{
    ASSERT_TRUE(shown);
    dialog.willChoose(save(tests::plainPicture({8, 8}, Qt::darkRed), "a.bmp", "BMP"));
    find<QAbstractButton>("changeback_btn")->click();
    EXPECT_TRUE(backdropBecomes(Qt::darkRed));
    EXPECT_TRUE(boxes.shown.empty());
}

TEST_F(StagePartsTest, TheButtonForTheBackdrop_SaysWhatItTakesOfAFileThatIsNone)
{
    dialog.willChoose(noPicture);
    find<QAbstractButton>("changeback_btn")->click();
    ASSERT_EQ(boxes.shown.size(), 1U);
    EXPECT_EQ(boxes.shown[0].text, "Only pictures in JPG, GIF & BMP formats are allowed");
}

TEST_F(StagePartsTest, TheCaptionsForTheBackdrop_TakeAPicture)
{
    ASSERT_TRUE(shown);
    find<QAbstractButton>("Picture24")->click();
    const std::pair<const char*, QColor> captions[] = {{"Label19", Qt::darkGreen},
                                                       {"loadpic_lb", Qt::darkBlue}};
    for (const auto& [caption, colour] : captions) {
        dialog.willChoose(save(tests::plainPicture({8, 8}, colour), "a.bmp", "BMP"));
        clickCaption(caption);
        EXPECT_TRUE(backdropBecomes(colour)) << caption;
    }
    EXPECT_TRUE(boxes.shown.empty());
}

TEST_F(StagePartsTest, TheCaptionsForTheBackdrop_ShowTheTextOfAnErrorAsAnyProgramWould)
{
    for (const char* caption : {"Label19", "loadpic_lb"}) {
        SCOPED_TRACE(caption);
        boxes.shown.clear();
        dialog.willChoose(noPicture);
        clickCaption(caption);
        ASSERT_EQ(boxes.shown.size(), 1U);
        EXPECT_EQ(boxes.shown[0].text, "no picture");
        EXPECT_EQ(boxes.shown[0].title, "Quillora");
        EXPECT_EQ(boxes.shown[0].icon, base::BoxIcon::critical);
    }
}

TEST_F(StagePartsTest, TheTextBoard_KeepsItsTextThroughEachLayoutAndTakesItsSize)
{
    auto& board = form.Picture1().textBoard_txt();
    parts.commands().toolbar_text();
    board.setText("A line that is longer than the narrow board is wide, so that it is broken anew.\r\nb");
    const auto before = board.TextRTF();
    const std::pair<const char*, QSize> layouts[] = {
        {"Picture24", {560, 420}}, {"Picture26", {747, 420}}, {"Picture4", {560, 420}},
        {"Picture19", {560, 420}}, {"Picture17", {747, 420}},
    };
    for (const auto& [button, size] : layouts) {
        find<QAbstractButton>(button)->click();
        tests::settle(50);
        EXPECT_EQ(board.size(), size) << button;
        EXPECT_EQ(board.TextRTF(), before) << button;
    }
}
