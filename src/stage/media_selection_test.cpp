#include "stage/media_selection.h"

#include "tests/support/fake_main_window.h"
#include "tests/support/fake_slide_panel.h"
#include "tests/support/fake_slide_show.h"

#include <gtest/gtest.h>

namespace quillora::stage {
namespace {

class MediaSelectionTest : public testing::Test {
  protected:
    tests::CallLog log{};
    tests::FakeMainWindow window{log};
    tests::FakeSlideShow slides{log};
    tests::FakeSlidePanel slide_img_back{};
    session::SessionFields fields{};
    MediaSelection media{{fields, window, slides, slide_img_back}};
};

using Calls = std::vector<std::string>;

TEST_F(MediaSelectionTest, OfSlides_ShowsTheirPanelAndReloads)
{
    media.setMediaType();
    EXPECT_TRUE(slide_img_back.visible);
    EXPECT_EQ(log.calls, (Calls{"LoadSlide", "panel6 slides"}));
}

TEST_F(MediaSelectionTest, OfAnyOtherText_DoesNothing)
{
    for (const auto* text : {"", "Slides", "powerpoint"}) {
        fields.myMediaType = text;
        media.setMediaType();
    }
    EXPECT_EQ(log.calls, Calls{});
    EXPECT_FALSE(slide_img_back.visible);
}

TEST_F(MediaSelectionTest, SkipsAPanelThatCannotBeWritten)
{
    window.failing.names = {"setStatusPanel"};
    EXPECT_NO_THROW(media.setMediaType());
    EXPECT_TRUE(slide_img_back.visible);
}

} // namespace
} // namespace quillora::stage
