#pragma once

#include "deck/image_surface.h"
#include "deck/slide_panel.h"
#include "session/main_window.h"
#include "session/session_fields.h"
#include "session/slide_show.h"
#include "session/slide_time_index.h"
#include "session/workspace.h"

#include <filesystem>
#include <string>
#include <string_view>

namespace quillora::deck {

/// Shows one slide on the stage and the next in the preview, and moves in the deck. Slides are picture files
/// in the Workspace, and each change reads them anew. The deck can be browsed at any time; whether a change
/// counts for the recording is the index's own question.
class SlideViewer : public session::SlideShow {
  public:
    struct Ports {
        session::SessionFields& fields;
        session::MainWindow& window;
        const session::Workspace& workspace;
        session::SlideTimeIndex& index;
        ImageSurface& slide_img;
        ImageSurface& slide_img_N;
        const SlidePanel& slide_img_back;
        /// Folder of the picture "PPT.png".
        std::filesystem::path assets;
    };
    /// What the ports refer to must outlive this object.
    explicit SlideViewer(const Ports& ports) : m_ports(ports) {}

    void showStartPicture() override;
    void LoadSlide() override;
    /// Stretches the slide to its panel, and the preview to 1.777 times the panel's height. Throws
    /// std::runtime_error when a surface has nothing to stretch.
    void ResizeSlide() override;

    /// A button of `navigation_TB` by its key: "first", "pre", "next" or "last". Never throws.
    void navigation_TB_ButtonClick(std::string_view key);
    /// Wipes the pen lines by building the picture anew. Never throws.
    void Command10_Click();

  private:
    void goTo(const std::string& slide);

    Ports m_ports;
};

} // namespace quillora::deck
