#include "audio/platform/pulse/pulse_wave_input.h"

#include "audio/text_field.h"

#include <algorithm>
#include <utility>

namespace quillora::audio {
namespace {

constexpr int kDefaultDevice = -1;

/// For the sound server to open an input.
constexpr std::chrono::milliseconds kPatience{700};

} // namespace

PulseWaveInput::PulseWaveInput(InputNumbers& numbers, messages::MessageQueue& queue,
                               std::optional<std::string> server)
    : m_numbers(numbers), m_queue(queue), m_server(std::move(server))
{}

std::string PulseWaveInput::waveInGetDevName(int device)
{
    const SoundInput* known = m_numbers.at(device);
    return paddedField(known ? known->description : std::string(), kDeviceNameField);
}

WaveHandle PulseWaveInput::waveInOpen(int device, const WaveFormat& format, messages::WindowHandle notify)
{
    const SoundInput* known = m_numbers.at(device);
    if (!known && device != kDefaultDevice)
        return 0;
    auto stream = std::make_unique<WaveInStream>(m_server, known ? std::optional(known->id) : std::nullopt,
                                                 format, WaveInStream::Target{m_queue, notify});
    if (!stream->opened(kPatience))
        return 0;
    m_open[++m_last].stream = std::move(stream);
    return m_last;
}

bool PulseWaveInput::waveInPrepareHeader(WaveHandle handle, WaveHeader& header)
{
    Open* open = find(handle);
    if (!open)
        return false;
    if (!isPrepared(*open, header))
        open->prepared.push_back(&header);
    return true;
}

bool PulseWaveInput::waveInUnprepareHeader(WaveHandle handle, WaveHeader& header)
{
    Open* open = find(handle);
    return open && std::erase(open->prepared, &header) > 0;
}

bool PulseWaveInput::waveInAddBuffer(WaveHandle handle, WaveHeader& header)
{
    Open* open = find(handle);
    return open && isPrepared(*open, header) && open->stream->queue(header);
}

bool PulseWaveInput::waveInStart(WaveHandle handle)
{
    Open* open = find(handle);
    if (open)
        open->stream->start();
    return open != nullptr;
}

bool PulseWaveInput::waveInStop(WaveHandle handle)
{
    Open* open = find(handle);
    if (open)
        open->stream->stop();
    return open != nullptr;
}

bool PulseWaveInput::waveInReset(WaveHandle handle)
{
    Open* open = find(handle);
    if (open)
        open->stream->reset();
    return open != nullptr;
}

bool PulseWaveInput::waveInClose(WaveHandle handle) { return m_open.erase(handle) > 0; }

const WaveHeader* PulseWaveInput::headerAt(messages::Parameter address) const
{
    for (const auto& [handle, open] : m_open)
        for (const WaveHeader* header : open.prepared)
            if (reinterpret_cast<messages::Parameter>(header) == address)
                return header;
    return nullptr;
}

PulseWaveInput::Open* PulseWaveInput::find(WaveHandle handle)
{
    const auto found = m_open.find(handle);
    return found == m_open.end() ? nullptr : &found->second;
}

bool PulseWaveInput::isPrepared(const Open& open, const WaveHeader& header) const
{
    return std::ranges::find(open.prepared, &header) != open.prepared.end();
}

} // namespace quillora::audio
