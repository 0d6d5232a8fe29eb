#pragma once

#include "base/dialogs.h"
#include "deck/image_surface.h"
#include "deck/presentation_application.h"
#include "session/main_window.h"
#include "session/session_fields.h"
#include "session/slide_show.h"
#include "session/stage_commands.h"
#include "session/workspace.h"

#include <filesystem>
#include <memory>
#include <string>

namespace quillora::deck {

/// Turns a deck into the picture files that the viewer shows. After that nothing of the deck is needed any
/// more.
///
/// An import replaces the last one as a whole and is never rolled back: with a converter that is missing, or
/// a deck that breaks halfway, the system runs on with the pictures that are there.
class DeckImport : public session::DeckOpening {
  public:
    struct Ports {
        session::SessionFields& fields;
        session::MainWindow& window;
        base::CommonDialog& CommonDialog1;
        base::MessageBoxes& boxes;
        session::Workspace& workspace;
        PresentationConverter& converter;
        session::SlideShow& slides;
        ImageSurface& slide_img;
        /// Folder of the cursor "WAIT02.CUR".
        std::filesystem::path assets;
    };
    /// What the ports refer to must outlive this object.
    explicit DeckImport(const Ports& ports) : m_ports(ports) {}

    /// Blocks while the converter works. Cancel changes nothing; otherwise `ppt_txt` is "ppt" afterwards,
    /// also when nothing could be imported.
    void openSlides() override;

  private:
    std::string askForDeck();
    /// The caller lets go of @p application, so that the slide is on the stage before the converter ends.
    void convert(std::unique_ptr<PresentationApplication>& application, const std::string& pptFileName);
    void countSlides(Presentation* presentation);
    void exportSlides(Presentation* presentation);
    void closingCheck();

    Ports m_ports;
};

} // namespace quillora::deck
