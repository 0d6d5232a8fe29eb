#pragma once

#include "session/main_window.h"
#include "session/operations.h"
#include "session/session_fields.h"
#include "session/stage_commands.h"
#include "stage/stage_fields.h"
#include "stage/stage_layout.h"
#include "stage/stage_surfaces.h"

#include <functional>
#include <string_view>

namespace quillora::stage {

/// The commands that choose what stands on the stage: the media buttons of the toolbar, the mode strip and
/// the corner buttons beside the stage, and three older places to click that set the camera into a corner.
/// All of them stay free during a recording, which films the change.
///
/// The media commands throw what a surface throws; the others skip it.
class StageCommands {
  public:
    struct Ports {
        session::SessionFields& fields;
        StageFields& stageFields;
        session::MainWindow& window;
        session::StageMedia& media;
        StageLayout& layout;
        StageSurfaces& surfaces;
        const session::OperationTable& operations;
    };
    /// What the ports refer to must outlive this object.
    explicit StageCommands(const Ports& ports) : m_ports(ports) {}

    /// A new media ends "fullcam", and keeps any other mode.
    void toolbar_slides();
    void toolbar_text();
    void toolbar_draw();
    void toolbar_web();
    void toolbar_youtube();

    /// The mode strip: "full", "fullcam", and "side" twice.
    void Picture26_Click();
    void Picture19_Click();
    void Picture24_Click();
    void Picture4_Click();

    /// The corners of "mix": top left, top right, bottom left, bottom right.
    void Picture17_Click();
    void Picture21_Click();
    void Picture22_Click();
    void Picture23_Click();

    /// Older corners, which leave the mode as it is: top right, bottom right, bottom left.
    void Label12_Click();
    void Label13_Click();
    void Picture16_Click();

  private:
    struct ModeButton;

    void chooseMedia(std::string_view media, const std::function<void()>& addition);
    void arrange(const ModeButton& button);
    void side();
    void mixAt(const base::TwipRectangle& corner);
    void placeCamera(const base::TwipRectangle& place);

    Ports m_ports;
};

} // namespace quillora::stage
