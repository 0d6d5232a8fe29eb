#pragma once

#include "base/dialogs.h"
#include "session/main_window.h"
#include "session/operations.h"
#include "session/session_fields.h"
#include "session/slide_show.h"
#include "session/stage_commands.h"
#include "session/task_pane_bars.h"
#include "stage/backdrop.h"
#include "stage/camera_connection.h"
#include "stage/deck_shortcut.h"
#include "stage/media_selection.h"
#include "stage/rotation.h"
#include "stage/stage_commands.h"
#include "stage/stage_fields.h"
#include "stage/stage_layout.h"

namespace quillora::forms {
class Vantry_frm;
} // namespace quillora::forms

namespace quillora::app {

/// What stands on the stage, and where: makes the logic of media, modes and layouts, provides its commands,
/// and connects what the presenter does beside the stage to it.
class StageParts {
  public:
    struct Needs {
        forms::Vantry_frm& window;
        session::SessionFields& fields;
        session::SlideShow& slides;
        session::TaskPaneBars& bars;
        session::DeckOpening& deck;
        const stage::CameraConnection& camera;
        base::CommonDialog& CommonDialog4;
        base::MessageBoxes& boxes;
        session::OperationTable& operations;
    };
    /// What @p needs refers to must outlive this object.
    explicit StageParts(const Needs& needs);

    session::StageMedia& media() { return m_media; }
    stage::StageLayout& layout() { return m_layout; }
    stage::StageCommands& commands() { return m_commands; }
    stage::Backdrop& backdrop() { return m_backdrop; }

  private:
    void provideOperations(session::OperationTable& operations);
    void connectWindow(forms::Vantry_frm& window);
    void connectBackdrop(forms::Vantry_frm& window, base::MessageBoxes& boxes);

    stage::StageFields m_fields{};
    stage::StageLayout m_layout;
    stage::MediaSelection m_media;
    stage::StageCommands m_commands;
    stage::DeckShortcut m_deckShortcut;
    stage::Rotation m_rotation;
    stage::Backdrop m_backdrop;
};

} // namespace quillora::app
