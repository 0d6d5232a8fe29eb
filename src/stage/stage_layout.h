#pragma once

#include "session/main_window.h"
#include "session/session_fields.h"
#include "session/slide_show.h"
#include "session/stage_commands.h"
#include "session/task_pane_bars.h"
#include "stage/camera_connection.h"
#include "stage/stage_fields.h"
#include "stage/stage_surfaces.h"

namespace quillora::stage {

/// How media and camera share the stage: one layout for each window mode. Every layout moves all media
/// surfaces that it moves at all, also those that aren't visible, so that a change of media finds its surface
/// in place. Only "full" hides the camera, and nothing here touches its connection.
///
/// Operations throw what a surface throws, and end there.
class StageLayout : public session::StageMode {
  public:
    struct Ports {
        const session::SessionFields& fields;
        StageFields& stageFields;
        session::MainWindow& window;
        session::SlideShow& slides;
        session::TaskPaneBars& bars;
        const CameraConnection& camera;
        StageSurfaces& surfaces;
    };
    /// What the ports refer to must outlive this object.
    explicit StageLayout(const Ports& ports) : m_ports(ports) {}

    /// The layout of `myWindowMode`; any text but "fullcam", "side", "mix" and "full" does nothing. In "mix"
    /// the caller places the camera afterwards.
    void setWindowMode() override;

    /// The media alone, filling the stage.
    void Fullmedia();
    /// The media at the left, the camera in a frame at the right.
    void SideWindow();
    /// The camera over the media, which stay where they are. Opens the camera's bar in the task pane.
    void FullCam();

    /// SideWindow() and Fullmedia() for commands that aren't mode buttons: they don't touch `myWindowMode`,
    /// see to it that some media is visible, and clear status panel 1, also while recording.
    void SideMode();
    void MixedMode();
    void side_by_side_mode();

    /// Shows the picture that stands in for an absent camera as `myWindowMode` wants it, or hides both.
    void checkCamIcon();

  private:
    bool noMediaVisible() const;
    void clearSessionText();
    void centreSmallIcon();
    void showInFront(StageSurface& icon);

    Ports m_ports;
};

} // namespace quillora::stage
