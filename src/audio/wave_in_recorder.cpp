#include "audio/wave_in_recorder.h"

#include "base/rounding.h"

#include <algorithm>

namespace quillora::audio {
namespace {

constexpr std::uint16_t kBitsPerSample = 16;

WaveFormat pcmFormat(int sampleRate, int channels)
{
    WaveFormat format{};
    format.wFormatTag = kWaveFormatPcm;
    format.nChannels = static_cast<std::uint16_t>(channels);
    format.nSamplesPerSec = static_cast<std::uint32_t>(sampleRate);
    format.wBitsPerSample = kBitsPerSample;
    format.nBlockAlign = static_cast<std::uint16_t>(kBitsPerSample / 8 * format.nChannels);
    format.nAvgBytesPerSec = format.nBlockAlign * format.nSamplesPerSec;
    return format;
}

} // namespace

WaveInRecorder::WaveInRecorder(const Ports& ports)
    : MixerLines(ports.input, ports.mixer),
      m_input(ports.input),
      m_windows(ports.windows),
      m_hooks(ports.hooks, std::make_shared<messages::HookOwner>(messages::HookOwner{
                               "WaveInRecorder",
                               {[this](messages::HookedMessage& message) { OnHookedMessage(message); }}}))
{}

WaveInRecorder::~WaveInRecorder()
{
    if (IsRecording())
        StopRecord();
}

bool WaveInRecorder::StartRecord(int sampleRate, int channels)
{
    // Its buffers are about to be replaced, and the device would go on writing into the old ones.
    if (IsRecording())
        StopRecord();
    m_buffers.assign(static_cast<std::size_t>(std::max(m_bufferCount, 0)), {});
    CreateMessageWindow();
    m_waveInHandle = m_input.waveInOpen(SelectedDevice(), pcmFormat(sampleRate, channels), m_messageWindow);
    if (m_waveInHandle == 0) {
        DestroyMessageWindow();
        return false;
    }
    if (!prepareBuffers())
        return giveUp();
    if (!m_input.waveInStart(m_waveInHandle)) {
        unprepareBuffers();
        return giveUp();
    }
    for (AudioBuffer& buffer : m_buffers)
        m_input.waveInAddBuffer(m_waveInHandle, buffer.header);
    return true;
}

bool WaveInRecorder::prepareBuffers()
{
    for (std::size_t index = 0; index < m_buffers.size(); ++index) {
        if (prepare(index))
            continue;
        // Of the header that failed, as often as there are headers that did not: closing releases those.
        for (std::size_t times = 0; times < index; ++times)
            m_input.waveInUnprepareHeader(m_waveInHandle, m_buffers[index].header);
        return false;
    }
    return true;
}

bool WaveInRecorder::prepare(std::size_t index)
{
    AudioBuffer& buffer = m_buffers[index];
    const int bytes = std::max(m_bufferSize, 0);
    buffer.samples.resize(static_cast<std::size_t>(base::roundToInt(bytes / 2.0)));
    buffer.header = {.lpData = buffer.samples.data(),
                     .dwBufferLength = static_cast<std::uint32_t>(bytes),
                     .dwUser = index};
    buffer.data = buffer.header.lpData;
    return m_input.waveInPrepareHeader(m_waveInHandle, buffer.header);
}

void WaveInRecorder::unprepareBuffers()
{
    for (AudioBuffer& buffer : m_buffers)
        m_input.waveInUnprepareHeader(m_waveInHandle, buffer.header);
}

bool WaveInRecorder::giveUp()
{
    m_input.waveInClose(m_waveInHandle);
    m_waveInHandle = 0;
    DestroyMessageWindow();
    return false;
}

bool WaveInRecorder::StopRecord()
{
    if (m_waveInHandle != 0) {
        // What these come to changes nothing.
        m_input.waveInStop(m_waveInHandle);
        m_input.waveInReset(m_waveInHandle);
        unprepareBuffers();
        m_input.waveInClose(m_waveInHandle);
        m_waveInHandle = 0;
    }
    DestroyMessageWindow();
    return true;
}

void WaveInRecorder::CreateMessageWindow()
{
    m_messageWindow = m_windows.create("STATIC", "WAVE_IN_WINDOW");
    HookMessageWindow();
}

void WaveInRecorder::HookMessageWindow()
{
    using messages::HookEngine;
    m_hooks.sc_Subclass(m_messageWindow, 0, 1, nullptr, HookEngine::HostSafety::on);
    m_hooks.sc_WatchMsg(m_messageWindow, messages::kWaveInputDataMessage, messages::MSG_AFTER);
}

void WaveInRecorder::UnhookMessageWindow()
{
    if (m_messageWindow == 0)
        return;
    m_hooks.sc_UnSubclass(m_messageWindow);
    m_messageWindow = 0;
}

void WaveInRecorder::DestroyMessageWindow()
{
    UnhookMessageWindow();
    // Unhooking has forgotten the window, which therefore stays, hidden, to the end of the program: what the
    // device still posts to it finds somebody who ignores it.
    m_windows.destroy(m_messageWindow);
    m_messageWindow = 0;
}

void WaveInRecorder::OnHookedMessage(const messages::HookedMessage& message)
{
    if (message.iMsg != messages::kWaveInputDataMessage)
        return;
    const WaveHeader* header = m_input.headerAt(message.lParam);
    if (header == nullptr)
        return;
    const WaveHeader copy = *header;
    if (copy.dwUser >= m_buffers.size())
        return;
    // The handler may put another one in its place, or none.
    if (const auto handler = GotData)
        handler(m_buffers[copy.dwUser].samples, copy.dwBytesRecorded);
    // The handler may have stopped the recording, and begun another one.
    if (IsRecording() && copy.dwUser < m_buffers.size())
        m_input.waveInAddBuffer(m_waveInHandle, m_buffers[copy.dwUser].header);
}

} // namespace quillora::audio
