#pragma once

#include "session/camera_switch.h"
#include "session/session_fields.h"
#include "stage/camera_panel_view.h"
#include "stage/stage_surface.h"
#include "stage/video_cap_x.h"

#include <array>
#include <functional>
#include <string>
#include <utility>

namespace quillora::stage {

/// The camera's switch, its choice of device and its picture controls. The switch says on or off by what the
/// presenter pressed: a machine without a camera, or a camera that can't be opened, changes nothing about it
/// and is told of by no message. Statements that fail are skipped.
///
/// Independent of the window mode: being connected is one thing, being seen another.
class CameraControl : public session::CameraSwitch {
  public:
    struct Ports {
        const session::SessionFields& fields;
        VideoCapX& camera;
        /// `VideoCap1_back`, where the live picture appears.
        StageSurface& VideoCap1_back;
        CameraPanelView& panel;
        /// Brings the picture that stands in for an absent camera up to date.
        std::function<void()> checkCamIcon;
    };
    /// What the ports refer to must outlive this object.
    explicit CameraControl(Ports ports) : m_ports(std::move(ports)) {}

    /// "Switch-on".
    void Option6_Click();
    /// "Switch-off".
    void Option5_Click();
    /// Lists the devices and connects the first.
    void LoadCam();
    /// Disconnects. The frame stays on the stage, black. Also runs at the end of the program.
    void CloseCam() override;

    /// Connects the device that the list shows, and fits the sliders to it. The picture that stands in for an
    /// absent camera stays as it is.
    void Combo1_Click();
    /// Sets the control to the slider's position as it stands: the device's minimum is not added.
    /// Throws what the camera throws.
    void Slider1_Change(int i);
    /// Asks for the automatic mode by the negated index, or sets the control to the slider's position and the
    /// device's minimum together.
    void Check1_Click(int i);
    /// The device's settings; not while recording.
    void Label14_Click();

    /// `cam_shape`, hidden by its parent: follows the switch.
    bool camShapeVisible() const { return m_camShapeVisible; }

  private:
    void listDevices();
    void fitSlider(int i);

    Ports m_ports;
    bool m_camShapeVisible = false;
    /// `Slider1[i].Tag`: the device's minimum.
    std::array<std::string, kVideoControlCount> m_sliderTag{};
};

} // namespace quillora::stage
