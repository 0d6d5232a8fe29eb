#pragma once

#include "session/stage_commands.h"
#include "session/task_pane_bars.h"
#include "stage/stage_surfaces.h"

namespace quillora::stage {

/// The small image on the stage that opens a deck without a way through the toolbar. It asks no gate, so it
/// opens one also while recording, and it leaves media, mode and the status text to whoever set them last.
class DeckShortcut {
  public:
    struct Ports {
        StageSurfaces& surfaces;
        session::TaskPaneBars& bars;
        session::DeckOpening& deck;
    };
    /// What the ports refer to must outlive this object.
    explicit DeckShortcut(const Ports& ports) : m_ports(ports) {}

    /// Never throws.
    void Image1_Click();

  private:
    void showSlidesBar();

    Ports m_ports;
};

} // namespace quillora::stage
