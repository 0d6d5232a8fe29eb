#include "session/command_surface.h"

#include "base/skip_failures.h"

namespace quillora::session {

using base::skipFailures;

template <Operation operation>
void CommandSurface::run()
{
    attempt(operation);
}

template <Operation operation>
void CommandSurface::runUnlessRecording()
{
    if (m_ports.fields.recordState != "record")
        attempt(operation);
}

struct CommandSurface::Routes {
    template <typename Key>
    struct Route {
        Key key;
        Handler handler;
    };

    using O = Operation;
    using C = CommandSurface;

    static constexpr Route<std::string_view> kToolbar[] = {
        {"open", &C::run<O::toolbar_open>},
        {"options", &C::run<O::toolbar_options>},
        {"desktop", &C::run<O::toolbar_screen>},
        {"record", &C::run<O::toolbar_record>},
        {"pause", &C::run<O::toolbar_pause>},
        {"resume", &C::run<O::toolbar_resume>},
        {"stop", &C::run<O::toolbar_stop>},
        {"more", &C::toolbar_more},
        {"less", &C::toolbar_less},
        {"slides", &C::run<O::toolbar_slides>},
        {"text", &C::run<O::toolbar_text>},
        {"draw", &C::run<O::toolbar_draw>},
        {"web", &C::run<O::toolbar_web>},
        {"youtube", &C::run<O::toolbar_youtube>},
        {"preview", &C::runUnlessRecording<O::showPreview>},
        {"upload", &C::runUnlessRecording<O::openUploadPage>},
    };

    static constexpr Route<int> kCommands[] = {
        {0, &C::run<O::toolbar_open>},    {1, &C::run<O::toolbar_options>}, {3, &C::run<O::toolbar_slides>},
        {4, &C::run<O::toolbar_text>},    {5, &C::run<O::toolbar_draw>},    {6, &C::run<O::toolbar_web>},
        {7, &C::run<O::toolbar_youtube>}, {8, &C::run<O::toolbar_screen>},  {10, &C::run<O::toolbar_record>},
        {11, &C::run<O::toolbar_pause>},  {12, &C::run<O::toolbar_stop>},
    };

    // The pane carries items for "about" and "onlinesupport" only. The others act as soon as one does.
    static constexpr Route<std::string_view> kPane[] = {
        {"options", &C::run<O::showOptionsFromTaskPane>},
        {"rotate0", &C::rotateAndResume},
        {"rotate1", &C::run<O::RotatePPTCAM>},
        {"rotate2", &C::rotateInPause},
        {"rotate3", &C::run<O::RotatePPTWHITEBOARD>},
        {"startrec", &C::startWithoutCountdown},
        {"pause", &C::pauseOrResume},
        {"stop", &C::run<O::StopRec>},
        {"help", &C::run<O::openGuide>},
        {"about", &C::run<O::showAbout>},
        {"online", &C::run<O::openSupportFile>},
        {"onlinesupport", &C::run<O::openSupportPage>},
        {"facebookgroup", &C::run<O::openUsersGroup>},
    };

    template <typename Table, typename Key>
    static void follow(CommandSurface& surface, const Table& table, const Key& key)
    {
        for (const auto& route : table)
            if (route.key == key)
                (surface.*route.handler)();
    }
};

void CommandSurface::main_TB_ButtonClick(std::string_view key)
{
    Routes::follow(*this, Routes::kToolbar, key);
}

void CommandSurface::command_Click(int index) { Routes::follow(*this, Routes::kCommands, index); }

void CommandSurface::ebDemo_ItemClick(std::string_view key) { Routes::follow(*this, Routes::kPane, key); }

void CommandSurface::record_Click()
{
    skipFailures([&] { m_ports.boxes.show({.text = "record..."}); });
}

void CommandSurface::attempt(Operation operation)
{
    skipFailures([&] { m_ports.operations.run(operation); });
}

/// The text is where these commands learn the state, whatever `recordState` says.
bool CommandSurface::panelSaysRecording() const { return m_ports.window.statusPanel(1) == "Recording ..."; }

/// Resumes without a pause before it: the engine starts once more, and the clock takes the time since the
/// last pause for a pause.
void CommandSurface::rotateAndResume()
{
    const bool recording = panelSaysRecording();
    attempt(Operation::RotatePPT);
    if (recording)
        attempt(Operation::ResumeRec);
}

void CommandSurface::rotateInPause()
{
    const bool recording = panelSaysRecording();
    if (recording)
        attempt(Operation::PauseRec);
    attempt(Operation::RotatePPTDRAW);
    if (recording)
        attempt(Operation::ResumeRec);
}

void CommandSurface::toolbar_more()
{
    setMediaButtonsVisible(true);
    skipFailures([&] { m_ports.window.setButtonVisible("more", false); }, [&] { m_ports.pane.AddExpBar(); });
}

void CommandSurface::toolbar_less()
{
    setMediaButtonsVisible(false);
    skipFailures([&] { m_ports.window.setButtonVisible("more", true); },
                 [&] { m_ports.pane.AddExpBarLess(); });
}

void CommandSurface::setMediaButtonsVisible(bool visible)
{
    for (const auto* key : {"text", "draw", "web", "youtube", "desktop", "less"})
        skipFailures([&] { m_ports.window.setButtonVisible(key, visible); });
}

void CommandSurface::startWithoutCountdown()
{
    attempt(Operation::StartRec);
    m_ports.fields.Text2 = "R";
}

void CommandSurface::pauseOrResume()
{
    // An item that the pane lacks has no caption, and so asks to resume.
    std::string caption;
    skipFailures([&] { caption = m_ports.pane.itemCaption("record", "pause"); });
    attempt(caption == " Pause" ? Operation::PauseRec : Operation::ResumeRec);
    skipFailures([&] { m_ports.pane.refresh(); });
}

} // namespace quillora::session
