#include "audio/mixer_lines.h"

#include <algorithm>
#include <vector>

namespace quillora::audio {
namespace {

/// Marks, among the bits of a control's type, what multiplexers have in common.
bool isMultiplexer(const MixerControl& control)
{
    return (control.dwControlType & control_type::kMultiplexer) > 0x70010000;
}

struct TypeWord {
    std::uint32_t type;
    const char* word;
};

constexpr TypeWord kTypeWords[] = {
    {line_type::kLineIn, "Line-In"},           {line_type::kDigital, "Digital"},
    {line_type::kCompactDisc, "Compact Disc"}, {line_type::kAnalog, "Analog"},
    {line_type::kAuxiliary, "Auxiliary"},      {line_type::kMicrophone, "Microphone"},
    {line_type::kPcSpeaker, "PC Speaker"},     {line_type::kSynthesizer, "Synthesizer"},
    {line_type::kTelephone, "Telephone"},      {line_type::kUndefined, "Undefined"},
    {line_type::kWaveOut, "WaveOut"},
};

} // namespace

MixerLines::~MixerLines()
{
    if (m_mixerHandle != 0)
        m_mixer.mixerClose(m_mixerHandle);
}

bool MixerLines::SelectDevice(int index)
{
    if (index < 0 || index >= DeviceCount())
        return false;
    m_selectedDevice = -1;
    if (m_mixerHandle != 0) {
        m_mixer.mixerClose(m_mixerHandle);
        m_mixerHandle = 0;
    }
    m_mixerHandle = m_mixer.mixerOpen(index);
    if (m_mixerHandle == 0)
        return false;
    m_selectedDevice = index;
    return true;
}

int MixerLines::MixerLineCount()
{
    if (m_selectedDevice < 0)
        return 0;
    const auto destination = FindWaveInDestination();
    return destination ? static_cast<int>(destination->cConnections) : 0;
}

std::string MixerLines::MixerLineName(int index)
{
    if (m_selectedDevice < 0)
        return {};
    const auto destination = FindWaveInDestination();
    if (!destination)
        return {};
    MixerLine line{.dwDestination = destination->dwDestination,
                   .dwSource = static_cast<std::uint32_t>(index)};
    return m_mixer.mixerGetLineInfo(m_mixerHandle, line, LineQuery::bySource) ? line.szName : std::string();
}

/// Lines and the items of a multiplexer are numbered from opposite ends.
bool MixerLines::SelectMixerLine(int index)
{
    return m_selectedDevice >= 0 && SetMuxItem(MixerLineCount() - index - 1);
}

int MixerLines::SelectedMixerLine() { return MixerLineCount() - GetMuxItem() - 1; }

std::uint32_t MixerLines::MixerLineType(int index)
{
    const int source = index == -1 ? SelectedMixerLine() : index;
    const auto destination = FindWaveInDestination();
    if (!destination)
        return 0;
    MixerLine line{.dwDestination = destination->dwDestination,
                   .dwSource = static_cast<std::uint32_t>(source)};
    return m_mixer.mixerGetLineInfo(m_mixerHandle, line, LineQuery::bySource) ? line.dwComponentType : 0;
}

std::uint32_t MixerLines::MixerLineVolume()
{
    const auto destination = FindWaveInDestination();
    return destination ? ReadLineVolume(destination->dwDestination, SelectedMixerLine())[0] : 0;
}

void MixerLines::MixerLineVolume(std::uint32_t volume)
{
    if (const auto destination = FindWaveInDestination())
        WriteLineVolume(destination->dwDestination, SelectedMixerLine(), {volume, volume});
}

std::optional<MixerLine> MixerLines::FindWaveInDestination()
{
    const int count = m_mixer.mixerGetDestinations(m_mixerHandle);
    for (int destination = 0; destination < count; ++destination) {
        MixerLine line{.dwDestination = static_cast<std::uint32_t>(destination)};
        if (m_mixer.mixerGetLineInfo(m_mixerHandle, line, LineQuery::byDestination) &&
            line.dwComponentType == line_type::kWaveIn)
            return line;
    }
    return std::nullopt;
}

/// The line whose sources a multiplexer chooses among: where the first query fails, what it leaves of the
/// record names the first destination.
std::optional<MixerLine> MixerLines::multiplexedLine()
{
    MixerLine line{.dwComponentType = line_type::kWaveIn};
    m_mixer.mixerGetLineInfo(m_mixerHandle, line, LineQuery::byComponentType);
    if (!m_mixer.mixerGetLineInfo(m_mixerHandle, line, LineQuery::byDestination))
        return std::nullopt;
    return line;
}

bool MixerLines::SetMuxItem(int item)
{
    const auto line = multiplexedLine();
    if (!line)
        return false;
    // As often as the destination's number says: the first one of a mixer has no choice to make.
    for (std::uint32_t pass = 0; pass < line->dwDestination; ++pass) {
        std::vector<MixerControl> controls(line->cControls);
        if (!m_mixer.mixerGetLineControls(m_mixerHandle, line->dwLineID, control_type::kMultiplexer,
                                          controls))
            return false;
        if (controls.empty() || item > static_cast<int>(controls.front().cMultipleItems))
            continue;
        for (const MixerControl& control : controls)
            if (isMultiplexer(control))
                setMultiplexer(control, item);
    }
    return true;
}

bool MixerLines::setMultiplexer(const MixerControl& control, int item)
{
    std::vector<std::uint32_t> values(control.cMultipleItems);
    const MixerControlDetails details{control.dwControlID, 1, control.cMultipleItems, values};
    m_mixer.mixerGetControlDetails(m_mixerHandle, details);
    for (std::size_t position = 0; position < values.size(); ++position)
        values[position] = static_cast<int>(position) == item ? 1 : 0;
    return m_mixer.mixerSetControlDetails(m_mixerHandle, details);
}

int MixerLines::GetMuxItem()
{
    const auto line = multiplexedLine();
    if (!line)
        return 0;
    int item = 0;
    for (std::uint32_t pass = 0; pass < line->dwDestination; ++pass) {
        std::vector<MixerControl> controls(line->cControls);
        if (!m_mixer.mixerGetLineControls(m_mixerHandle, line->dwLineID, control_type::kMultiplexer,
                                          controls))
            return 0;
        for (const MixerControl& control : controls) {
            if (!isMultiplexer(control))
                continue;
            std::vector<std::uint32_t> values(control.cMultipleItems);
            m_mixer.mixerGetControlDetails(m_mixerHandle,
                                           {control.dwControlID, 1, control.cMultipleItems, values});
            for (std::size_t position = 0; position < values.size(); ++position)
                if (values[position] != 0)
                    item = static_cast<int>(position);
        }
    }
    return item;
}

std::uint32_t MixerLines::FindLineControl(std::uint32_t componentType, std::uint32_t controlType,
                                          std::uint32_t lineId)
{
    MixerLine line{.dwComponentType = componentType};
    if (!m_mixer.mixerGetLineInfo(m_mixerHandle, line, LineQuery::byComponentType))
        return 0;
    std::array<MixerControl, 1> control{};
    const bool found = m_mixer.mixerGetLineControls(m_mixerHandle, lineId, controlType, control);
    return found ? control[0].dwControlID : 0;
}

void MixerLines::accessLineVolume(Access access, std::uint32_t destination, int source, VolumePair& pair)
{
    MixerLine line{.dwDestination = destination, .dwSource = static_cast<std::uint32_t>(source)};
    m_mixer.mixerGetLineInfo(m_mixerHandle, line, LineQuery::bySource);
    const std::uint32_t control = FindLineControl(line.dwComponentType, control_type::kVolume, line.dwLineID);
    const std::size_t channels = std::min<std::size_t>(line.cChannels, pair.size());
    const MixerControlDetails details{control, line.cChannels, 0, std::span(pair).first(channels)};
    if (access == Access::read)
        m_mixer.mixerGetControlDetails(m_mixerHandle, details);
    else
        m_mixer.mixerSetControlDetails(m_mixerHandle, details);
}

MixerLines::VolumePair MixerLines::ReadLineVolume(std::uint32_t destination, int source)
{
    VolumePair pair{};
    accessLineVolume(Access::read, destination, source, pair);
    return pair;
}

void MixerLines::WriteLineVolume(std::uint32_t destination, int source, VolumePair pair)
{
    accessLineVolume(Access::write, destination, source, pair);
}

std::string lineTypeWord(std::uint32_t type)
{
    for (const TypeWord& each : kTypeWords)
        if (each.type == type)
            return each.word;
    return "Unknown";
}

} // namespace quillora::audio
