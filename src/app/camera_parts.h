#pragma once

#include "session/camera_switch.h"
#include "session/session_fields.h"
#include "stage/camera_control.h"
#include "stage/newest_frame.h"
#include "stage/stage_commands.h"
#include "stage/stage_layout.h"
#include "stage/video_cap_x.h"

namespace quillora::forms {
class CameraPanel;
class Vantry_frm;
} // namespace quillora::forms

namespace quillora::app {

/// The presenter's camera: its panel, its picture on the stage, and what the one does to the other.
class CameraParts {
  public:
    struct Needs {
        forms::Vantry_frm& window;
        const session::SessionFields& fields;
        stage::VideoCapX& camera;
        /// Where @p camera leaves its pictures.
        stage::NewestFrame& frames;
        stage::StageLayout& layout;
        stage::StageCommands& commands;
    };
    /// What @p needs refers to must outlive this object.
    explicit CameraParts(const Needs& needs);

    session::CameraSwitch& cameraSwitch() { return m_control; }

  private:
    void connectPanel(forms::CameraPanel& panel, stage::StageCommands& commands);

    stage::CameraControl m_control;
};

} // namespace quillora::app
