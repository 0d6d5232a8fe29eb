#pragma once

#include "deck/slide_panel.h"
#include "session/main_window.h"
#include "session/session_fields.h"
#include "session/slide_show.h"
#include "session/stage_commands.h"

namespace quillora::stage {

/// Brings up the surface of the media that `myMediaType` names. The slides are the only media so far.
class MediaSelection : public session::StageMedia {
  public:
    struct Ports {
        const session::SessionFields& fields;
        session::MainWindow& window;
        session::SlideShow& slides;
        deck::SlidePanel& slide_img_back;
    };
    /// What the ports refer to must outlive this object.
    explicit MediaSelection(const Ports& ports) : m_ports(ports) {}

    /// "slides" shows the slide panel, reloads the slide and writes the media into status panel 6. Any other
    /// text does nothing.
    void setMediaType() override;

  private:
    Ports m_ports;
};

} // namespace quillora::stage
