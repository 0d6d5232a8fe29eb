#pragma once

#include <functional>
#include <map>

namespace quillora::session {

/// What a command can ask for. The gate on `recordState`, where there is one, stands inside the operation,
/// except for those that only open something: the command surface asks for them.
enum class Operation {
    toolbar_open,
    toolbar_options,
    toolbar_record,
    toolbar_pause,
    toolbar_resume,
    toolbar_stop,
    toolbar_slides,
    toolbar_text,
    toolbar_draw,
    toolbar_web,
    toolbar_youtube,
    toolbar_screen,

    /// Steps of a recording without their gates.
    StartRec,
    PauseRec,
    ResumeRec,
    StopRec,
    /// Readies the drawing board for a new turn on the stage.
    DrawPrepare,
    RotatePPT,
    RotatePPTCAM,
    RotatePPTDRAW,
    RotatePPTWHITEBOARD,

    /// Modal, owned by the main form, each returning when it is closed.
    showPreview,
    showAbout,
    /// The options beside a main form that is disabled until they go.
    showOptionsFromTaskPane,

    /// Start a program of the desktop and don't wait for it.
    openUploadPage,
    openGuide,
    openSupportFile,
    openSupportPage,
    openUsersGroup,
};

/// What each operation is, filled by the composition: each subject provides its own in a line each. So the
/// routing of commands knows none of the objects behind them.
class OperationTable {
  public:
    void provide(Operation operation, std::function<void()> run) { m_runs[operation] = std::move(run); }
    /// Throws what the operation throws. One that nobody provides does nothing.
    void run(Operation operation) const
    {
        if (const auto found = m_runs.find(operation); found != m_runs.end())
            found->second();
    }

  private:
    std::map<Operation, std::function<void()>> m_runs{};
};

} // namespace quillora::session
