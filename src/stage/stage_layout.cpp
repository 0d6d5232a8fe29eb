#include "stage/stage_layout.h"

#include "base/rounding.h"
#include "stage/stage_rectangles.h"

namespace quillora::stage {

using session::BarState;

void StageLayout::setWindowMode()
{
    const auto& mode = m_ports.fields.myWindowMode;
    if (mode == "fullcam")
        FullCam();
    else if (mode == "side")
        SideWindow();
    else if (mode == "mix" || mode == "full")
        Fullmedia();
}

void StageLayout::Fullmedia()
{
    auto& on = m_ports.surfaces;
    for (auto* camera : {&on.VideoCap1_back, &on.cam_icon_trans, &on.cam_icon_trans_s})
        camera->setVisible(false);
    on.slide_img.move(kFullStage);
    on.slide_img_back.move(kFullStage);
    // The picture is stretched to its panel when it is loaded, so the panel has to be in place.
    m_ports.slides.LoadSlide();
    for (auto* media : {&on.textBoard_txt, &on.picPaint, &on.WebBrowser1, &on.WebBrowser2})
        media->move(kFullStage);
}

void StageLayout::SideWindow()
{
    auto& on = m_ports.surfaces;
    on.cam_icon_trans.setVisible(false);
    if (m_ports.camera.connected())
        on.cam_icon_trans_s.setVisible(false);
    else
        showInFront(on.cam_icon_trans_s);
    on.VideoCap1_back.move(kSideCamera);
    on.VideoCap1_back.setVisible(true);
    centreSmallIcon();
    on.slide_img_back.move(kSideMedia);
    on.slide_img.move(kSideMedia);
    m_ports.slides.LoadSlide();
    for (auto* media : {&on.picPaint, &on.textBoard_txt, &on.WebBrowser1, &on.WebBrowser2})
        media->move(kSideMedia);
}

void StageLayout::FullCam()
{
    auto& on = m_ports.surfaces;
    on.VideoCap1_back.move(kFullStage);
    on.VideoCap1_back.setVisible(true);
    on.cam_icon_trans_s.setVisible(false);
    checkCamIcon();
    session::setBarStates(m_ports.bars, BarState::expanded, {"camera"});
    session::setBarStates(m_ports.bars, BarState::collapsed, {"powerpoint", "text", "draw", "web"});
}

void StageLayout::SideMode()
{
    if (noMediaVisible())
        m_ports.surfaces.slide_img.setVisible(true);
    SideWindow();
    clearSessionText();
}

void StageLayout::MixedMode()
{
    Fullmedia();
    if (noMediaVisible())
        m_ports.surfaces.slide_img.setVisible(true);
    clearSessionText();
}

void StageLayout::side_by_side_mode()
{
    m_ports.stageFields.CamStart_txt = "on";
    SideMode();
}

void StageLayout::checkCamIcon()
{
    auto& on = m_ports.surfaces;
    const auto& mode = m_ports.fields.myWindowMode;
    if (m_ports.camera.connected()) {
        on.cam_icon_trans.setVisible(false);
        on.cam_icon_trans_s.setVisible(false);
    } else if (mode == "fullcam") {
        showInFront(on.cam_icon_trans);
    } else if (mode == "side") {
        showInFront(on.cam_icon_trans_s);
    } else if (mode == "mix") {
        centreSmallIcon();
        showInFront(on.cam_icon_trans_s);
    }
}

bool StageLayout::noMediaVisible() const
{
    const auto& on = m_ports.surfaces;
    return !on.picPaint.visible() && !on.WebBrowser2.visible() && !on.WebBrowser1.visible() &&
           !on.textBoard_txt.visible() && !on.slide_img.visible();
}

void StageLayout::clearSessionText()
{
    if (m_ports.stageFields.Text4 != "run")
        m_ports.window.setStatusPanel(1, "");
}

void StageLayout::centreSmallIcon()
{
    auto& icon = m_ports.surfaces.cam_icon_trans_s;
    const auto frame = m_ports.surfaces.VideoCap1_back.rectangle();
    auto place = icon.rectangle();
    const auto centred = [](base::Twips start, base::Twips length, base::Twips iconLength) {
        const float middle = static_cast<float>(start.value) + static_cast<float>(length.value) / 2;
        return base::Twips{base::roundToInt(middle - static_cast<float>(iconLength.value) / 2)};
    };
    place.top = centred(frame.top, frame.height, place.height);
    place.left = centred(frame.left, frame.width, place.width);
    icon.move(place);
}

void StageLayout::showInFront(StageSurface& icon)
{
    icon.setVisible(true);
    icon.bringToFront();
}

} // namespace quillora::stage
