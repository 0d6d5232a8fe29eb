#include "app/camera_parts.h"

#include "base/skip_failures.h"
#include "forms/camera_panel.h"
#include "forms/camera_preview.h"
#include "forms/stage_widget.h"
#include "forms/vantry_frm.h"
#include "stage/stage_surfaces.h"

namespace quillora::app {

using forms::CameraPanel;

CameraParts::CameraParts(const Needs& needs)
    : m_control({.fields = needs.fields,
                 .camera = needs.camera,
                 .VideoCap1_back = needs.window.surfaces().VideoCap1_back,
                 .panel = needs.window.PicDraw1(),
                 .checkCamIcon = [&layout = needs.layout] { layout.checkCamIcon(); }})
{
    needs.window.Picture1().VideoCap1_back().showPicturesOf(needs.frames);
    connectPanel(needs.window.PicDraw1(), needs.commands);
}

void CameraParts::connectPanel(CameraPanel& panel, stage::StageCommands& commands)
{
    const auto connect = [&](auto signal, auto handler) {
        QObject::connect(&panel, signal, &panel, handler);
    };
    connect(&CameraPanel::Option5_Click, [this] { m_control.Option5_Click(); });
    connect(&CameraPanel::Option6_Click, [this] { m_control.Option6_Click(); });
    connect(&CameraPanel::Combo1_Click, [this] { m_control.Combo1_Click(); });
    // A camera that was unplugged a moment ago must not end the program.
    connect(&CameraPanel::Slider1_Change,
            [this](int i) { base::skipFailures([&] { m_control.Slider1_Change(i); }); });
    connect(&CameraPanel::Check1_Click, [this](int i) { m_control.Check1_Click(i); });
    connect(&CameraPanel::Label12_Click, [&commands] { commands.Label12_Click(); });
    connect(&CameraPanel::Label13_Click, [&commands] { commands.Label13_Click(); });
    connect(&CameraPanel::Label14_Click, [this] { m_control.Label14_Click(); });
}

} // namespace quillora::app
