#include "session/capture_options.h"

#include "base/skip_failures.h"
#include "base/text_number.h"

#include <array>
#include <charconv>

namespace quillora::session {

namespace {

constexpr double kLowestFrameRate = 12;
constexpr double kHighestFrameRate = 50;
constexpr double kFrameRateStep = 1;
constexpr double kLowestBitrate = 700;
constexpr double kHighestBitrate = 1500;
constexpr double kBitrateStep = 100;

constexpr auto* kFrameRateHelp = "Typically, Quillora Recorder records at 24 frames per second (fps) to "
                                 "improve the quality of video output and "
                                 "give the appearance of seamless movement. When increasing frame rate, we "
                                 "recommend that you also keep in mind "
                                 "how it will affect the overall recording file size. Range 12 - 50.";
constexpr auto* kBitrateHelp =
    "Bitrate is the number of bits used per unit of playback time to represent a continuous video after "
    "source "
    "coding (data compression). Typically, Quillora Recorder records at 700 Kbps. The encoding bitrate of "
    "WMV video "
    "file is the size of a video file in bytes divided by the playback time of the recording (in seconds), "
    "multiplied by eight. A higher bit rate means that the video has more information.";
constexpr auto* kCursorHelp =
    "Capture and include your mouse cursor movements in the video recording. Check only if you need it. "
    "Capturing "
    "the mouse cursor uses substantial CPU resources and has lower priority than capturing the slides";
constexpr auto* kCodecHelp =
    "A codec is software that is used to compress or decompress a digital media file, such as a song or "
    "video. "
    "Windows Media Player and other programs use codecs to play and create digital media files. There are "
    "hundreds "
    "of audio and video codecs in use today. Some have been created by Microsoft, but the vast majority of "
    "codecs "
    "have been created by other companies, organizations, or individuals. By default, Quillora Recorder uses "
    "Microsoft Video 1 to incode AVI videos.";

/// With the fifteen digits that such a number is written with, and none that say nothing. Always with a
/// point: leadingNumber() takes no other, and the toolkit has the C library write as the presenter's language
/// does.
std::string plainDecimal(double number)
{
    std::array<char, 64> text{};
    const auto end =
        std::to_chars(text.data(), text.data() + text.size(), number, std::chars_format::general, 15).ptr;
    return {text.data(), end};
}

double sizeFactor(ShowSize size)
{
    switch (size) {
    case ShowSize::s_opt:
        return 1 / 1.3;
    case ShowSize::n_opt:
        return 1;
    case ShowSize::l_opt:
        return 1.09;
    }
    return 1;
}

} // namespace

const OptionControls& CaptureOptions::controls()
{
    // A recording is made with the stored values, whatever else the engine fails to tell.
    base::skipFailures([&] { loaded(); });
    return m_controls;
}

OptionControls& CaptureOptions::loaded()
{
    if (!m_isLoaded) {
        m_controls = {};
        Form_Load();
        m_isLoaded = true;
    }
    return m_controls;
}

void CaptureOptions::Form_Load()
{
    auto& engine = m_ports.captureEngine.get();
    const auto codecs = engine.VideoCodecCount();
    for (std::int32_t index = 0; index < codecs; ++index)
        m_controls.VideoCodecs_cmb_List.push_back(engine.VideoCodecName(index));
    m_controls.VideoCodecs_cmb = "Microsoft Video 1";
    // The sound inputs are walked like the codecs, but their lists stay empty: a recording takes the default
    // one.
    const auto devices = engine.AudioDeviceCount();
    for (std::int32_t index = 0; index < devices; ++index)
        engine.AudioDeviceName(index);
    const auto lines = engine.AudioLineCount();
    for (std::int32_t index = 0; index < lines; ++index)
        engine.AudioLineName(index);
}

void CaptureOptions::Form_Unload()
{
    m_isLoaded = false;
    m_ports.window.setFormEnabled(true);
}

void CaptureOptions::toolbar_options()
{
    if (m_ports.fields.recordState != "record")
        m_ports.form.showModal(loaded());
}

void CaptureOptions::showFromTaskPane()
{
    m_ports.form.show(loaded());
    m_ports.form.SetTopMost(true);
    m_ports.window.setFormEnabled(false);
}

void CaptureOptions::Command1_Click()
{
    m_ports.window.makeShapeTransparent();
    m_ports.form.hide();
}

void CaptureOptions::Command2_Click()
{
    m_ports.form.hide();
    Form_Unload();
}

void CaptureOptions::UpDown1_DownClick()
{
    if (base::leadingNumber(loaded().settings.txtfps) != kLowestFrameRate)
        step(&capture::CaptureSettings::txtfps, -kFrameRateStep);
}

void CaptureOptions::UpDown1_UpClick()
{
    if (base::leadingNumber(loaded().settings.txtfps) != kHighestFrameRate)
        step(&capture::CaptureSettings::txtfps, kFrameRateStep);
}

void CaptureOptions::UpDown2_DownClick()
{
    if (base::leadingNumber(loaded().settings.bitrate_txt) > kLowestBitrate)
        step(&capture::CaptureSettings::bitrate_txt, -kBitrateStep);
}

void CaptureOptions::UpDown2_UpClick()
{
    if (base::leadingNumber(loaded().settings.bitrate_txt) < kHighestBitrate)
        step(&capture::CaptureSettings::bitrate_txt, kBitrateStep);
}

void CaptureOptions::step(std::string capture::CaptureSettings::*box, double by)
{
    auto& text = loaded().settings.*box;
    text = plainDecimal(base::leadingNumber(text) + by);
    m_ports.form.update(m_controls);
}

void CaptureOptions::txtfps_Change(const std::string& text) { loaded().settings.txtfps = text; }

void CaptureOptions::bitrate_txt_Change(const std::string& text) { loaded().settings.bitrate_txt = text; }

void CaptureOptions::capturecursor_chk_Click(bool checked) { loaded().settings.capturecursor_chk = checked; }

void CaptureOptions::highlightCursor_chk_Click(bool checked)
{
    loaded().settings.highlightCursor_chk = checked;
}

void CaptureOptions::sizeClick(ShowSize size)
{
    loaded().size = size;
    m_controls.SS_txt = plainDecimal(sizeFactor(size));
    m_ports.form.update(m_controls);
}

void CaptureOptions::Picture6_Click() { help(kFrameRateHelp); }

void CaptureOptions::Picture1_Click() { help(kBitrateHelp); }

void CaptureOptions::Picture4_Click() { help(kCursorHelp); }

void CaptureOptions::Picture2_Click() { help(kCodecHelp); }

void CaptureOptions::help(const char* text)
{
    m_ports.boxes.show({.text = text, .icon = base::BoxIcon::information});
}

void CaptureOptions::langchng()
{
    loaded().captions = Language::arabic;
    m_ports.form.update(m_controls);
}

} // namespace quillora::session
