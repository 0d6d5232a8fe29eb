#include "session/command_surface.h"

#include "tests/support/fake_main_window.h"
#include "tests/support/fake_message_boxes.h"

#include <gtest/gtest.h>

#include <map>
#include <stdexcept>

namespace quillora::session {
namespace {

using Calls = std::vector<std::string>;

class FakeTaskPaneForms : public TaskPaneForms {
  public:
    explicit FakeTaskPaneForms(tests::CallLog& callLog) : log(callLog) {}

    tests::CallLog& log;
    /// Of the item "pause" of the bar "record", where a pane has them.
    std::string pauseCaption{};

    void AddExpBar() override { log.add("AddExpBar"); }
    void AddExpBarLess() override { log.add("AddExpBarLess"); }
    std::string itemCaption(std::string_view bar, std::string_view item) const override
    {
        if (bar != "record" || item != "pause" || pauseCaption.empty())
            throw std::out_of_range("no such item");
        return pauseCaption;
    }
    void refresh() override { log.add("refresh"); }
};

const std::map<std::string, Operation> kNames = {
    {"toolbar_open", Operation::toolbar_open},
    {"toolbar_options", Operation::toolbar_options},
    {"toolbar_record", Operation::toolbar_record},
    {"toolbar_pause", Operation::toolbar_pause},
    {"toolbar_resume", Operation::toolbar_resume},
    {"toolbar_stop", Operation::toolbar_stop},
    {"toolbar_slides", Operation::toolbar_slides},
    {"toolbar_text", Operation::toolbar_text},
    {"toolbar_draw", Operation::toolbar_draw},
    {"toolbar_web", Operation::toolbar_web},
    {"toolbar_youtube", Operation::toolbar_youtube},
    {"toolbar_screen", Operation::toolbar_screen},
    {"StartRec", Operation::StartRec},
    {"PauseRec", Operation::PauseRec},
    {"ResumeRec", Operation::ResumeRec},
    {"StopRec", Operation::StopRec},
    {"RotatePPT", Operation::RotatePPT},
    {"RotatePPTCAM", Operation::RotatePPTCAM},
    {"RotatePPTDRAW", Operation::RotatePPTDRAW},
    {"RotatePPTWHITEBOARD", Operation::RotatePPTWHITEBOARD},
    {"showPreview", Operation::showPreview},
    {"showAbout", Operation::showAbout},
    {"showOptionsFromTaskPane", Operation::showOptionsFromTaskPane},
    {"openUploadPage", Operation::openUploadPage},
    {"openGuide", Operation::openGuide},
    {"openSupportFile", Operation::openSupportFile},
    {"openSupportPage", Operation::openSupportPage},
    {"openUsersGroup", Operation::openUsersGroup},
};

class CommandSurfaceTest : public testing::Test {
  protected:
    CommandSurfaceTest()
    {
        for (const auto& [name, operation] : kNames)
            operations.provide(operation, [this, logged = name] { log.add(logged); });
    }
    void failAt(Operation operation)
    {
        operations.provide(operation, [] { throw std::runtime_error("told to fail"); });
    }
    Calls after(auto event)
    {
        log.clear();
        event();
        return log.calls;
    }
    Calls toolbar(const std::string& key)
    {
        return after([&] { commands.main_TB_ButtonClick(key); });
    }
    Calls item(const std::string& key)
    {
        return after([&] { commands.ebDemo_ItemClick(key); });
    }

    tests::CallLog log{};
    tests::FakeMainWindow window{log};
    tests::FakeMessageBoxes boxes{log};
    FakeTaskPaneForms pane{log};
    SessionFields fields{};
    OperationTable operations{};
    CommandSurface commands{{fields, window, boxes, pane, operations}};
};

TEST_F(CommandSurfaceTest, RoutesEachKeyOfTheToolbar)
{
    const std::pair<const char*, const char*> routes[] = {
        {"open", "toolbar_open"},     {"options", "toolbar_options"}, {"desktop", "toolbar_screen"},
        {"record", "toolbar_record"}, {"pause", "toolbar_pause"},     {"resume", "toolbar_resume"},
        {"stop", "toolbar_stop"},     {"slides", "toolbar_slides"},   {"text", "toolbar_text"},
        {"draw", "toolbar_draw"},     {"web", "toolbar_web"},         {"youtube", "toolbar_youtube"},
        {"preview", "showPreview"},   {"upload", "openUploadPage"},
    };
    for (const auto& [key, operation] : routes)
        EXPECT_EQ(toolbar(key), Calls{operation}) << key;
}

TEST_F(CommandSurfaceTest, RoutesEachIndexAndNoOther)
{
    const std::map<int, std::string> routes = {
        {0, "toolbar_open"},    {1, "toolbar_options"}, {3, "toolbar_slides"},  {4, "toolbar_text"},
        {5, "toolbar_draw"},    {6, "toolbar_web"},     {7, "toolbar_youtube"}, {8, "toolbar_screen"},
        {10, "toolbar_record"}, {11, "toolbar_pause"},  {12, "toolbar_stop"},
    };
    for (int index = -3; index < 20; ++index) {
        const auto route = routes.find(index);
        EXPECT_EQ(after([&] { commands.command_Click(index); }),
                  route == routes.end() ? Calls{} : Calls{route->second})
            << index;
    }
}

TEST_F(CommandSurfaceTest, RoutesEachKeyOfTheTaskPane)
{
    const std::pair<const char*, const char*> routes[] = {
        {"options", "showOptionsFromTaskPane"},
        {"rotate0", "RotatePPT"},
        {"rotate1", "RotatePPTCAM"},
        {"rotate2", "RotatePPTDRAW"},
        {"rotate3", "RotatePPTWHITEBOARD"},
        {"startrec", "StartRec"},
        {"stop", "StopRec"},
        {"help", "openGuide"},
        {"about", "showAbout"},
        {"online", "openSupportFile"},
        {"onlinesupport", "openSupportPage"},
        {"facebookgroup", "openUsersGroup"},
    };
    for (const auto& [key, operation] : routes)
        EXPECT_EQ(item(key), Calls{operation}) << key;
}

TEST_F(CommandSurfaceTest, LeavesNoTraceOfKeysThatItDoesNotKnow)
{
    for (const auto* key : {"", "Open", "open ", "sep3", "sepa1", "camera", "start1"})
        EXPECT_EQ(toolbar(key), Calls{}) << key;
    for (const auto* key : {"start1", "mic", "dec", "exit", "", "About", "rotate4", "open", "record"})
        EXPECT_EQ(item(key), Calls{}) << key;
}

TEST_F(CommandSurfaceTest, OpensReviewAndUploadExceptWhileRecording)
{
    for (const auto* state : {"stop", "record", "pause"}) {
        fields.recordState = state;
        const auto expected = [&](const char* call) {
            return fields.recordState == "record" ? Calls{} : Calls{call};
        };
        EXPECT_EQ(toolbar("preview"), expected("showPreview")) << state;
        EXPECT_EQ(toolbar("upload"), expected("openUploadPage")) << state;
    }
}

TEST_F(CommandSurfaceTest, More_ShowsTheMediaButtonsAndTheLongPane)
{
    toolbar("more");
    for (const auto* key : {"text", "draw", "web", "youtube", "desktop", "less"})
        EXPECT_TRUE(window.buttonVisible[key]) << key;
    EXPECT_FALSE(window.buttonVisible["more"]);
    EXPECT_EQ(log.calls.back(), "AddExpBar");
}

TEST_F(CommandSurfaceTest, MoreAndThenLess_ReturnsToThePictureOfTheStart)
{
    const auto atFirst = window.buttonVisible;
    toolbar("more");
    EXPECT_NE(window.buttonVisible, atFirst);
    toolbar("less");
    EXPECT_EQ(window.buttonVisible, atFirst);
    EXPECT_EQ(log.calls.back(), "AddExpBarLess");
}

TEST_F(CommandSurfaceTest, MoreAndLess_LeaveUploadHidden)
{
    window.buttonVisible["upload"] = false;
    toolbar("more");
    EXPECT_FALSE(window.buttonVisible["upload"]);
}

TEST_F(CommandSurfaceTest, Rotate0WhileThePanelSaysRecording_ResumesWithoutAPause)
{
    window.panels[1] = "Recording ...";
    EXPECT_EQ(item("rotate0"), (Calls{"RotatePPT", "ResumeRec"}));
}

TEST_F(CommandSurfaceTest, Rotate2WhileThePanelSaysRecording_PausesMeanwhile)
{
    window.panels[1] = "Recording ...";
    EXPECT_EQ(item("rotate2"), (Calls{"PauseRec", "RotatePPTDRAW", "ResumeRec"}));
    EXPECT_EQ(item("rotate1"), Calls{"RotatePPTCAM"});
    EXPECT_EQ(item("rotate3"), Calls{"RotatePPTWHITEBOARD"});
}

TEST_F(CommandSurfaceTest, Rotate_AsksThePanelAndNotTheState)
{
    fields.recordState = "record";
    window.panels[1] = "";
    EXPECT_EQ(item("rotate0"), Calls{"RotatePPT"});
    EXPECT_EQ(item("rotate2"), Calls{"RotatePPTDRAW"});
}

TEST_F(CommandSurfaceTest, StartrecOfThePane_StartsAtOnceAndChoosesThePlainClock)
{
    fields.Text2 = "P";
    fields.ppt_txt = "no";
    EXPECT_EQ(item("startrec"), Calls{"StartRec"});
    EXPECT_EQ(fields.Text2, "R");
}

TEST_F(CommandSurfaceTest, PauseOfThePane_GoesByTheCaptionOfItsItem)
{
    pane.pauseCaption = " Pause";
    EXPECT_EQ(item("pause"), (Calls{"PauseRec", "refresh"}));
    pane.pauseCaption = "Pause";
    EXPECT_EQ(item("pause"), (Calls{"ResumeRec", "refresh"}));
}

TEST_F(CommandSurfaceTest, PauseOfAPaneWithoutThatItem_Resumes)
{
    EXPECT_EQ(item("pause"), (Calls{"ResumeRec", "refresh"}));
}

TEST_F(CommandSurfaceTest, SkipsWhatFailsAndGoesOn)
{
    window.panels[1] = "Recording ...";
    failAt(Operation::toolbar_open);
    failAt(Operation::RotatePPTDRAW);
    failAt(Operation::PauseRec);
    failAt(Operation::StartRec);
    fields.Text2 = "P";
    EXPECT_EQ(toolbar("open"), Calls{});
    EXPECT_EQ(item("rotate2"), Calls{"ResumeRec"});
    EXPECT_EQ(item("startrec"), Calls{});
    EXPECT_EQ(fields.Text2, "R");
}

TEST_F(CommandSurfaceTest, DoesNothingForAnOperationThatNobodyProvides)
{
    const OperationTable none;
    CommandSurface empty{{fields, window, boxes, pane, none}};
    EXPECT_EQ(after([&] { empty.main_TB_ButtonClick("web"); }), Calls{});
    EXPECT_EQ(after([&] { empty.ebDemo_ItemClick("about"); }), Calls{});
}

TEST_F(CommandSurfaceTest, RecordOfTheMenu_ShowsABox)
{
    EXPECT_EQ(after([&] { commands.record_Click(); }), Calls{"box record..."});
}

} // namespace
} // namespace quillora::session
