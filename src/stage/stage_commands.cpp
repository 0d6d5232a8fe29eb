#include "stage/stage_commands.h"

#include "base/skip_failures.h"
#include "stage/stage_rectangles.h"

namespace quillora::stage {

using base::skipFailures;
using session::Operation;

namespace {

enum class Slide { hiddenMeanwhile, leftAlone };
enum class Media { broughtUp, leftAlone };
enum class Panels { modeAndMedia, mode };

/// The older corners, each in a frame of 4:3.
constexpr base::TwipRectangle kTopRightFrame{{6000}, {120}, {2280}, {1710}};
constexpr base::TwipRectangle kBottomRightFrame{{6000}, {4480}, {2280}, {1710}};
constexpr base::TwipRectangle kBottomLeftFrame{{120}, {4480}, {2280}, {1710}};

void nothing() {}

} // namespace

/// How the buttons beside the stage differ; the order of their steps is one, see arrange().
struct StageCommands::ModeButton {
    std::string_view mode;
    Slide slide;
    Media media;
    std::function<void()> addition;
    Panels panels;
};

void StageCommands::toolbar_slides() { chooseMedia("slides", nothing); }

void StageCommands::toolbar_text() { chooseMedia("text", nothing); }

void StageCommands::toolbar_draw()
{
    chooseMedia("draw", [this] { m_ports.operations.run(Operation::DrawPrepare); });
}

void StageCommands::toolbar_web() { chooseMedia("web", nothing); }

void StageCommands::toolbar_youtube() { chooseMedia("youtube", nothing); }

void StageCommands::chooseMedia(std::string_view media, const std::function<void()>& addition)
{
    auto& fields = m_ports.fields;
    fields.myMediaType = media;
    m_ports.media.setMediaType();
    if (fields.myWindowMode == "fullcam") {
        fields.myWindowMode = "full";
        m_ports.layout.setWindowMode();
    }
    addition();
    m_ports.window.setStatusPanel(6, fields.myMediaType);
}

void StageCommands::Picture26_Click()
{
    arrange({.mode = "full",
             .slide = Slide::hiddenMeanwhile,
             .media = Media::broughtUp,
             .addition = nothing,
             .panels = Panels::modeAndMedia});
}

void StageCommands::Picture19_Click()
{
    arrange({.mode = "fullcam",
             .slide = Slide::leftAlone,
             .media = Media::leftAlone,
             .addition = nothing,
             .panels = Panels::mode});
}

void StageCommands::Picture24_Click() { side(); }

void StageCommands::Picture4_Click() { side(); }

void StageCommands::side()
{
    const auto offerBackdrop = [this] {
        if (m_ports.fields.recordState != "record")
            m_ports.window.setChangeBackVisible(true);
    };
    arrange({.mode = "side",
             .slide = Slide::hiddenMeanwhile,
             .media = Media::broughtUp,
             .addition = offerBackdrop,
             .panels = Panels::mode});
}

void StageCommands::Picture17_Click() { mixAt({kCameraInset, kCameraInset, kCameraWidth, kCameraHeight}); }

void StageCommands::Picture21_Click() { mixAt({kCameraFarLeft, kCameraInset, kCameraWidth, kCameraHeight}); }

void StageCommands::Picture22_Click() { mixAt({kCameraInset, kCameraFarTop, kCameraWidth, kCameraHeight}); }

void StageCommands::Picture23_Click()
{
    // The one corner that leaves the height as it was: after "fullcam" the frame reaches below the stage.
    const auto height = m_ports.surfaces.VideoCap1_back.rectangle().height;
    mixAt({kCameraFarLeft, kCameraFarTop, kCameraWidth, height});
}

void StageCommands::mixAt(const base::TwipRectangle& corner)
{
    const auto placeInCorner = [&] {
        auto& camera = m_ports.surfaces.VideoCap1_back;
        skipFailures([&] { camera.move(corner); }, [&] { m_ports.layout.checkCamIcon(); },
                     [&] { camera.setVisible(true); });
    };
    arrange({.mode = "mix",
             .slide = Slide::hiddenMeanwhile,
             .media = Media::broughtUp,
             .addition = placeInCorner,
             .panels = Panels::modeAndMedia});
}

void StageCommands::arrange(const ModeButton& button)
{
    auto& fields = m_ports.fields;
    auto& slide_img = m_ports.surfaces.slide_img;
    // Neither the audience nor the recording sees the slide at a place that isn't its last one.
    if (button.slide == Slide::hiddenMeanwhile)
        skipFailures([&] { slide_img.setVisible(false); });
    fields.myWindowMode = button.mode;
    skipFailures([&] { m_ports.layout.setWindowMode(); });
    if (button.media == Media::broughtUp)
        skipFailures([&] { m_ports.media.setMediaType(); });
    skipFailures([&] { button.addition(); }, [&] { m_ports.window.setStatusPanel(5, fields.myWindowMode); });
    if (button.panels == Panels::modeAndMedia)
        skipFailures([&] { m_ports.window.setStatusPanel(6, fields.myMediaType); });
    if (button.slide == Slide::hiddenMeanwhile)
        skipFailures([&] { slide_img.setVisible(true); });
}

void StageCommands::Label12_Click()
{
    m_ports.stageFields.CamStart_txt = "on";
    skipFailures([&] { placeCamera(kTopRightFrame); },
                 // Hides the camera again: of the three older corners this is the one that leaves it so.
                 [&] { m_ports.layout.MixedMode(); });
}

void StageCommands::Label13_Click()
{
    m_ports.stageFields.CamStart_txt = "on";
    skipFailures([&] { m_ports.layout.MixedMode(); }, [&] { placeCamera(kBottomRightFrame); });
}

void StageCommands::Picture16_Click()
{
    skipFailures([&] { m_ports.layout.MixedMode(); }, [&] { placeCamera(kBottomLeftFrame); });
}

void StageCommands::placeCamera(const base::TwipRectangle& place)
{
    m_ports.surfaces.VideoCap1_back.move(place);
    m_ports.surfaces.VideoCap1_back.setVisible(true);
}

} // namespace quillora::stage
