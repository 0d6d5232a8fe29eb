#include "stage/camera_control.h"

#include "base/rounding.h"
#include "base/skip_failures.h"
#include "base/text_number.h"

namespace quillora::stage {

void CameraControl::Option6_Click()
{
    base::skipFailures([&] { LoadCam(); }, [&] { m_ports.panel.setLabel14Visible(true); },
                       [&] { m_ports.checkCamIcon(); });
}

void CameraControl::Option5_Click()
{
    base::skipFailures([&] { CloseCam(); }, [&] { m_ports.panel.setLabel14Visible(false); },
                       [&] { m_ports.checkCamIcon(); });
}

void CameraControl::LoadCam()
{
    base::skipFailures([&] { listDevices(); },
                       [&] {
                           m_ports.panel.setCombo1ListIndex(0);
                           // Choosing a line is what connects its device, whoever chooses it.
                           Combo1_Click();
                       },
                       [&] { m_ports.camera.setPreview(true); },
                       [&] { m_ports.VideoCap1_back.setVisible(true); }, [&] { m_camShapeVisible = true; });
}

void CameraControl::listDevices()
{
    m_ports.panel.clearCombo1();
    const int count = m_ports.camera.deviceCount();
    for (int i = 0; i < count; ++i)
        base::skipFailures([&] {
            m_ports.panel.addToCombo1("Cam " + base::decimalText(i + 1) + ": " +
                                      m_ports.camera.deviceName(i));
        });
}

void CameraControl::CloseCam()
{
    base::skipFailures([&] { m_ports.camera.setConnected(false); }, [&] { m_camShapeVisible = false; },
                       [&] { m_ports.VideoCap1_back.setVisible(true); },
                       [&] { m_ports.panel.clearCombo1(); });
}

void CameraControl::Combo1_Click()
{
    auto& camera = m_ports.camera;
    base::skipFailures(
        [&] {
            if (camera.connected())
                camera.setConnected(false);
        },
        [&] { camera.setDeviceIndex(m_ports.panel.Combo1ListIndex()); }, [&] { camera.setVideoInput(0); },
        [&] { camera.setVideoStandard(0); }, [&] { camera.setConnected(true); },
        [&] { camera.setPreview(true); });
    for (int i = 0; i < kVideoControlCount; ++i)
        fitSlider(i);
}

void CameraControl::fitSlider(int i)
{
    auto& panel = m_ports.panel;
    std::optional<VideoControlRange> range;
    base::skipFailures([&] {
        const auto found = m_ports.camera.videoControlRange(i);
        range = found;
    });
    if (!range) {
        base::skipFailures([&] { panel.setSliderEnabled(i, false); });
    } else {
        const double minimum = range->minimum;
        base::skipFailures([&] { panel.setSliderEnabled(i, true); }, [&] { panel.setSliderMinimum(i, 0); },
                           [&] { panel.setSliderMaximum(i, base::roundToInt(range->maximum - minimum)); },
                           [&] { m_sliderTag.at(std::size_t(i)) = base::decimalText(range->minimum); },
                           [&] { panel.setSliderValue(i, base::roundToInt(range->current - minimum)); });
    }
    base::skipFailures([&] { panel.setChecked(i, false); });
}

void CameraControl::Slider1_Change(int i)
{
    m_ports.camera.setVideoControlValue(i, m_ports.panel.sliderValue(i));
}

void CameraControl::Check1_Click(int i)
{
    auto& panel = m_ports.panel;
    const bool automatic = panel.isChecked(i);
    base::skipFailures(
        [&] {
            if (automatic) {
                m_ports.camera.setVideoControlValue(-i, 0);
                return;
            }
            const double value = base::leadingNumber(m_sliderTag.at(std::size_t(i))) + panel.sliderValue(i);
            m_ports.camera.setVideoControlValue(i, base::roundToInt(value));
        },
        [&] { panel.setSliderEnabled(i, !automatic); });
}

void CameraControl::Label14_Click()
{
    if (m_ports.fields.recordState == "record")
        return;
    base::skipFailures([&] { m_ports.camera.showSettings(); });
}

} // namespace quillora::stage
