#include "capture/recording_engine.h"

#include <algorithm>
#include <array>
#include <stdexcept>

namespace quillora::capture {

namespace {

constexpr std::array<const char*, 1> kVideoCodecs{"Windows Media Video 8"};
/// The engine takes what the default input delivers, as one line.
constexpr std::array<const char*, 1> kAudioLines{"Default input"};

template <typename Names>
std::string nameAt(const Names& names, std::int32_t index)
{
    if (index < 0 || std::size_t(index) >= std::size(names))
        throw std::out_of_range("no such name");
    return names[std::size_t(index)];
}

MediaFormat nearestPossible(MediaFormat format)
{
    // NaN is no number of frames either.
    if (!(format.framesPerSecond >= RecordingEngine::kLowestFrameRate))
        format.framesPerSecond = RecordingEngine::kLowestFrameRate;
    format.framesPerSecond = std::min(format.framesPerSecond, RecordingEngine::kHighestFrameRate);
    format.bitsPerSecond = std::max(format.bitsPerSecond, RecordingEngine::kLowestBitrate);
    return format;
}

} // namespace

RecordingEngine::RecordingEngine(CapturePorts ports) : m_ports(std::move(ports)) {}

RecordingEngine::~RecordingEngine() { Stop(); }

void RecordingEngine::Start()
{
    if (m_recording) {
        m_recording->resume(m_view);
        return;
    }
    if (!m_namedAnew)
        return;
    const auto recording = std::make_shared<Recording>(m_ports, nearestPossible(m_format));
    recording->begin(m_view);
    m_recording = recording;
    m_namedAnew = false;
}

void RecordingEngine::Pause()
{
    if (m_recording)
        m_recording->pause();
}

void RecordingEngine::Stop()
{
    // Also of a recording whose file could not be opened: what comes next is another one, with a name of its
    // own.
    m_namedAnew = false;
    if (!m_recording)
        return;
    m_recording->end();
    m_counts = m_recording->counts();
    m_recording.reset();
}

std::int32_t RecordingEngine::VideoCodecCount() const { return std::int32_t(kVideoCodecs.size()); }

std::string RecordingEngine::VideoCodecName(std::int32_t index) const { return nameAt(kVideoCodecs, index); }

std::int32_t RecordingEngine::AudioDeviceCount() const
{
    m_audioDevices = m_ports.openSound()->inputNames();
    return std::int32_t(m_audioDevices.size());
}

std::string RecordingEngine::AudioDeviceName(std::int32_t index) const
{
    return nameAt(m_audioDevices, index);
}

std::int32_t RecordingEngine::AudioLineCount() const { return std::int32_t(kAudioLines.size()); }

std::string RecordingEngine::AudioLineName(std::int32_t index) const { return nameAt(kAudioLines, index); }

} // namespace quillora::capture
