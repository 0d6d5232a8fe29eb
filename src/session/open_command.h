#pragma once

#include "session/main_window.h"
#include "session/session_fields.h"
#include "session/stage_commands.h"
#include "session/task_pane_bars.h"

namespace quillora::session {

/// The command Open: a deck comes in, and the slides come onto the stage.
class OpenCommand {
  public:
    struct Ports {
        SessionFields& fields;
        MainWindow& window;
        DeckOpening& deck;
        StageMedia& media;
        StageMode& mode;
        TaskPaneBars& bars;
    };
    /// What the ports refer to must outlive this object.
    explicit OpenCommand(const Ports& ports) : m_ports(ports) {}

    /// Does nothing while recording; in a pause it opens a deck.
    void toolbar_open();

  private:
    Ports m_ports;
};

} // namespace quillora::session
