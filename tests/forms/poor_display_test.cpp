// The form on a display that is smaller than the window and has no window manager.

#include "tests/forms/form_fixture.h"

using namespace quillora;
using tests::busyPicture;

namespace {

constexpr QRect kScreen{0, 0, 800, 600};

class PoorDisplayTest : public testing::Test {
  protected:
    PoorDisplayTest()
    {
        form.show();
        shown = tests::waitUntil([this] { return probe.isMapped(window()); });
        tests::settle();
    }
    std::uint32_t window() const { return std::uint32_t(form.winId()); }

    tests::TemporaryFolder folder;
    tests::X11Probe probe;
    forms::X11WindowHints hints;
    forms::Vantry_frm form{hints};
    bool shown = false;
};

} // namespace

TEST_F(PoorDisplayTest, IsStartedOnAllTheSame)
{
    ASSERT_FALSE(probe.hasWindowManager());
    ASSERT_TRUE(shown);
    EXPECT_GT(form.width(), kScreen.width());
    EXPECT_EQ(form.stageRectangle().width, 747);
    EXPECT_EQ(form.stageRectangle().height, 420);
}

TEST_F(PoorDisplayTest, ShowsThePartOfTheStageThatIsOnIt)
{
    const QImage picture = busyPicture({747, 420});
    const auto file = folder.path() / "slide.png";
    ASSERT_TRUE(picture.save(tests::text(file)));
    form.slide_img().LoadFile(file);
    form.slide_img().ResizeImage(747, 420);
    const capture::PixelRectangle told = form.stageRectangle();
    const QRect stage(told.left, told.top, told.width, told.height);
    const QRect seen = stage.intersected(kScreen);
    ASSERT_GT(seen.width(), 300);
    EXPECT_LT(seen.width(), stage.width());
    EXPECT_TRUE(tests::waitUntil(
        [&] { return probe.grab(seen) == picture.copy(seen.translated(-stage.topLeft())); }));
}

TEST_F(PoorDisplayTest, IgnoresWhatIsAskedOfAWindowManager)
{
    const QRect place = probe.geometry(window());
    probe.watchUnmapping(window());
    form.SetTopMost(true);
    form.setHasMinimizeBox(false);
    form.setMoveLocked(true);
    form.SetTopMost(false);
    form.setMoveLocked(false);
    form.setHasMinimizeBox(true);
    tests::settle();
    EXPECT_TRUE(probe.isMapped(window()));
    EXPECT_EQ(probe.unmappings(), 0);
    EXPECT_EQ(probe.geometry(window()), place);
}

TEST_F(PoorDisplayTest, IsCentredOver)
{
    form.center_form();
    tests::settle();
    EXPECT_EQ(probe.geometry(window()).x(), (kScreen.width() - form.width()) / 2);
    EXPECT_EQ(probe.geometry(window()).y(), (kScreen.height() - form.height()) / 2);
}
