#pragma once

#include "session/main_window.h"
#include "session/session_fields.h"
#include "session/slide_show.h"
#include "session/stage_commands.h"
#include "session/task_pane_bars.h"
#include "stage/stage_surfaces.h"

namespace quillora::stage {

/// Brings up the surface of the media that `myMediaType` names, and opens its bar in the task pane. The
/// camera stays as the window mode left it.
class MediaSelection : public session::StageMedia {
  public:
    struct Ports {
        const session::SessionFields& fields;
        session::MainWindow& window;
        session::SlideShow& slides;
        session::TaskPaneBars& bars;
        StageSurfaces& surfaces;
    };
    /// What the ports refer to must outlive this object.
    explicit MediaSelection(const Ports& ports) : m_ports(ports) {}

    /// Any text but "slides", "text", "draw", "web" and "youtube" does nothing. What fails is skipped. Only
    /// "slides" loads its content anew and writes the media into status panel 6; no media hides WebBrowser2,
    /// whose page goes on living behind the others.
    void setMediaType() override;

  private:
    struct Branch;

    void bringUp(const Branch& branch);

    Ports m_ports;
};

} // namespace quillora::stage
