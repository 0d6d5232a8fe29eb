#include "audio/microphone_level.h"

#include "audio/text_field.h"

#include <utility>

namespace quillora::audio {
namespace {

constexpr double kSliderMaximum = 65535;

} // namespace

MicrophoneLevel::MicrophoneLevel(Ports ports) : m_ports(std::move(ports)) {}

void MicrophoneLevel::load()
{
    if (!m_loaded)
        Form_Load();
}

std::string MicrophoneLevel::lblVolPer()
{
    load();
    return m_ports.form.lblVolPer();
}

void MicrophoneLevel::Form_Load()
{
    m_clsRecorder = m_ports.newRecorder();
    const int count = FillDeviceList();
    m_loaded = count > 0;
    m_ports.form.setDevices(m_loaded ? MicrophoneControls::Devices::some : MicrophoneControls::Devices::none);
    if (m_loaded)
        m_ports.form.setListIndex(List::cboDev, 0);
}

int MicrophoneLevel::FillDeviceList()
{
    m_ports.form.clear(List::cboDev);
    const int count = m_clsRecorder->DeviceCount();
    for (int index = 0; index < count; ++index)
        m_ports.form.addItem(List::cboDev, fieldText(m_clsRecorder->DeviceName(index)));
    return count;
}

void MicrophoneLevel::cboDev_Click()
{
    m_ports.form.clear(List::cboRecLine);
    if (m_clsRecorder->SelectDevice(m_ports.form.listIndex(List::cboDev)))
        FillLineList();
    else
        warn("Couldn't select device!");
}

void MicrophoneLevel::FillLineList()
{
    m_ports.form.clear(List::cboRecLine);
    const int count = m_clsRecorder->MixerLineCount();
    for (int index = 0; index < count; ++index)
        m_ports.form.addItem(List::cboRecLine, fieldText(m_clsRecorder->MixerLineName(index)));
    m_ports.form.setListIndex(List::cboRecLine, m_clsRecorder->SelectedMixerLine());
}

void MicrophoneLevel::cboRecLine_Click()
{
    if (!m_clsRecorder->SelectMixerLine(m_ports.form.listIndex(List::cboRecLine)))
        warn("Couldn't select mixer line!");
    // Says nothing to anybody: it is there for whoever steps through the program to see why a line behaves as
    // it does.
    [[maybe_unused]] const std::string lineType =
        "Line Type: " + lineTypeWord(m_clsRecorder->MixerLineType());
    m_ports.form.setSldVol(static_cast<int>(m_clsRecorder->MixerLineVolume()));
    sldVol_Scroll();
}

void MicrophoneLevel::sldVol_Scroll()
{
    const int value = m_ports.form.sldVol();
    m_clsRecorder->MixerLineVolume(static_cast<std::uint32_t>(value));
    m_ports.form.setLblVolPer(std::to_string(static_cast<int>(value / kSliderMaximum * 100)) + "%");
}

void MicrophoneLevel::warn(const std::string& text)
{
    m_ports.boxes.show({.text = text, .title = "Quillora", .icon = base::BoxIcon::warning});
}

} // namespace quillora::audio
