// The drawing board without its cursors and sheets, and with sheets that are not what they should be.

#include "tests/forms/drawing_form_fixture.h"

#include <QAbstractButton>
#include <QRadioButton>

#include <fstream>
#include <string>

using namespace quillora;
using drawing::Tool;

namespace {

/// A drawing board whose files are what a test puts into a folder.
class DrawingWithoutFilesTest : public tests::DrawingFormTest {
  protected:
    DrawingWithoutFilesTest() : DrawingFormTest(Files::none) {}

    void expectStrokesWork()
    {
        drag({{100, 100}, {200, 100}});
        EXPECT_TRUE(isInk(150, 100));
    }
    void write(const char* name, const std::string& contents)
    {
        std::ofstream(folder.path() / name, std::ios::binary) << contents;
    }
};

} // namespace

TEST_F(DrawingWithoutFilesTest, ToolsWorkUnderTheSystemsPointer)
{
    ASSERT_TRUE(shown);
    for (int id = 0; id < drawing::kToolCount; ++id) {
        if (find<QAbstractButton>(QStringLiteral("optTools_%1").arg(id))->isHidden())
            continue;
        find<QAbstractButton>(QStringLiteral("optTools_%1").arg(id))->click();
        EXPECT_EQ(fields().currentTool, id);
        EXPECT_EQ(picPaint.cursor().shape(), Qt::ArrowCursor) << id;
    }
    choose(Tool::pencil);
    expectStrokesWork();
}

TEST_F(DrawingWithoutFilesTest, BoardCanBeChosenAndDrawnOn)
{
    ASSERT_TRUE(shown);
    EXPECT_THROW(parts.DrawPrepare(), std::runtime_error);
    expectStrokesWork();
}

TEST_F(DrawingWithoutFilesTest, HandKeepsThePointerThatItHas)
{
    choose(Tool::hand);
    QTest::mouseClick(&picPaint, Qt::LeftButton, {}, {50, 50});
    EXPECT_EQ(picPaint.cursor().shape(), Qt::ArrowCursor);
}

TEST_F(DrawingWithoutFilesTest, SheetThatIsMissingLeavesTheDrawing)
{
    ASSERT_TRUE(shown);
    expectStrokesWork();
    const QImage before = drawn();
    find<QRadioButton>("Option1")->click();
    EXPECT_EQ(drawn(), before);
}

TEST_F(DrawingWithoutFilesTest, SheetThatIsNoPictureLeavesTheDrawing)
{
    ASSERT_TRUE(shown);
    expectStrokesWork();
    const QImage before = drawn();
    write("grid.gif", "this is no picture at all");
    write("xy.gif", "GIF89a");
    find<QRadioButton>("Option1")->click();
    find<QRadioButton>("Option3")->click();
    EXPECT_EQ(drawn(), before);
}

TEST_F(DrawingWithoutFilesTest, SheetThatIsHugeLeavesTheDrawing)
{
    ASSERT_TRUE(shown);
    expectStrokesWork();
    const QImage before = drawn();
    // A picture that says that it has 65535 by 65535 pixels.
    write("grid.gif",
          std::string("GIF89a\xff\xff\xff\xff\x80\x00\x00", 13) + std::string(6, '\xff') +
              std::string("\x2c\x00\x00\x00\x00\xff\xff\xff\xff\x00\x02\x02\x4c\x01\x00\x3b", 16));
    find<QRadioButton>("Option1")->click();
    EXPECT_EQ(drawn(), before);
}

TEST_F(DrawingWithoutFilesTest, SheetLargerThanTheCanvasShowsItsTopLeft)
{
    const QImage large = tests::busyPicture({3000, 2000});
    ASSERT_TRUE(large.save(tests::text(folder.path() / "grid.gif"), "PNG"));
    find<QRadioButton>("Option1")->click();
    EXPECT_EQ(drawn(), large.copy(0, 0, 747, 420));
}
