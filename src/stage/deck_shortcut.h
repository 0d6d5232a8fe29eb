#pragma once

#include "deck/slide_panel.h"
#include "session/stage_commands.h"

namespace quillora::stage {

/// The small image on the stage that opens a deck without a way through the toolbar. It asks no gate, so it
/// opens one also while recording, and it leaves media, mode and the status text to whoever set them last.
class DeckShortcut {
  public:
    struct Ports {
        deck::SlidePanel& slide_img_back;
        session::DeckOpening& deck;
    };
    /// What the ports refer to must outlive this object.
    explicit DeckShortcut(const Ports& ports) : m_ports(ports) {}

    /// Never throws.
    void Image1_Click();

  private:
    Ports m_ports;
};

} // namespace quillora::stage
