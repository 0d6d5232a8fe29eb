#include "audio/source_mixer.h"

#include "audio/text_field.h"
#include "audio/volume_scale.h"

#include <algorithm>

namespace quillora::audio {
namespace {

/// The first destination of a mixer is what it plays to; it has no sources here.
constexpr std::uint32_t kSpeakersDestination = 0;
constexpr std::uint32_t kWaveInDestination = 1;
constexpr int kDestinations = 2;

/// Ids within one mixer, of lines and of controls. A line's volume has the line's id.
constexpr std::uint32_t kSpeakersId = 1;
constexpr std::uint32_t kWaveInId = 2;
constexpr std::uint32_t kFirstLineId = 10;

std::uint32_t lineCount(const SoundInput& source)
{
    return std::max<std::uint32_t>(static_cast<std::uint32_t>(source.ports.size()), 1);
}

/// Volumes are told in pairs.
std::uint32_t channelCount(const SoundInput& source)
{
    return static_cast<std::uint32_t>(std::clamp<std::size_t>(source.volumes.size(), 1, 2));
}

MixerLine destinationLine(const SoundInput& source, std::uint32_t number)
{
    if (number == kSpeakersDestination)
        return {.dwDestination = number,
                .dwLineID = kSpeakersId,
                .dwComponentType = line_type::kSpeakers,
                .szName = paddedField("Speakers", kLineNameField)};
    return {.dwDestination = number,
            .dwLineID = kWaveInId,
            .dwComponentType = line_type::kWaveIn,
            .cChannels = channelCount(source),
            .cConnections = lineCount(source),
            .cControls = 1,
            .szName = paddedField(source.description, kLineNameField)};
}

MixerLine sourceLine(const SoundInput& source, std::uint32_t number)
{
    MixerLine line{.dwDestination = kWaveInDestination,
                   .dwSource = number,
                   .dwLineID = kFirstLineId + number,
                   .cChannels = channelCount(source),
                   .cControls = 1};
    if (source.ports.empty()) {
        line.dwComponentType = source.monitor ? line_type::kWaveOut : line_type::kUndefined;
        line.szName = paddedField(source.description, kLineNameField);
    } else {
        const SoundInput::Port& port = source.ports[number];
        line.dwComponentType = port.type;
        line.szName = paddedField(port.description, kLineNameField);
    }
    return line;
}

std::optional<MixerLine> lineOfType(const SoundInput& source, std::uint32_t type)
{
    for (std::uint32_t number = 0; number < kDestinations; ++number)
        if (const MixerLine line = destinationLine(source, number); line.dwComponentType == type)
            return line;
    for (std::uint32_t number = 0; number < lineCount(source); ++number)
        if (const MixerLine line = sourceLine(source, number); line.dwComponentType == type)
            return line;
    return std::nullopt;
}

std::optional<MixerLine> find(const SoundInput& source, const MixerLine& given, LineQuery query)
{
    switch (query) {
    case LineQuery::byDestination:
        if (given.dwDestination < kDestinations)
            return destinationLine(source, given.dwDestination);
        break;
    case LineQuery::bySource:
        if (given.dwDestination == kWaveInDestination && given.dwSource < lineCount(source))
            return sourceLine(source, given.dwSource);
        break;
    case LineQuery::byComponentType:
        return lineOfType(source, given.dwComponentType);
    }
    return std::nullopt;
}

bool isLine(const SoundInput& source, std::uint32_t id)
{
    return id >= kFirstLineId && id - kFirstLineId < lineCount(source);
}

/// The multiplexer's items run against the lines.
std::uint32_t itemOf(const SoundInput& source, std::uint32_t line) { return lineCount(source) - line - 1; }

bool inUse(const SoundInput& source, std::uint32_t line)
{
    return source.ports.empty() || source.ports[line].id == source.activePort;
}

std::uint32_t shownVolume(const SoundInput& source, std::size_t channel)
{
    if (source.muted || source.volumes.empty())
        return 0;
    return fromServerVolume(source.volumes[std::min(channel, source.volumes.size() - 1)]);
}

} // namespace

MixerHandle SourceMixer::mixerOpen(int waveInputDevice)
{
    const SoundInput* device = m_numbers.at(waveInputDevice);
    if (!device || !m_inputs.input(device->id))
        return 0;
    m_open[++m_last] = device->id;
    return m_last;
}

void SourceMixer::mixerClose(MixerHandle handle) { m_open.erase(handle); }

int SourceMixer::mixerGetDestinations(MixerHandle handle) { return sourceOf(handle) ? kDestinations : 0; }

bool SourceMixer::mixerGetLineInfo(MixerHandle handle, MixerLine& line, LineQuery query)
{
    const auto source = sourceOf(handle);
    const auto found = source ? find(*source, line, query) : std::nullopt;
    if (found)
        line = *found;
    return found.has_value();
}

bool SourceMixer::mixerGetLineControls(MixerHandle handle, std::uint32_t lineId, std::uint32_t controlType,
                                       std::span<MixerControl> controls)
{
    const auto source = sourceOf(handle);
    if (!source || controls.empty())
        return false;
    if (lineId == kWaveInId && controlType == control_type::kMultiplexer) {
        controls[0] = {kWaveInId, controlType, lineCount(*source)};
        return true;
    }
    if (isLine(*source, lineId) && controlType == control_type::kVolume) {
        controls[0] = {lineId, controlType, 0};
        return true;
    }
    return false;
}

bool SourceMixer::mixerGetControlDetails(MixerHandle handle, const MixerControlDetails& details)
{
    const auto source = sourceOf(handle);
    if (!source)
        return false;
    if (details.dwControlID == kWaveInId) {
        std::ranges::fill(details.values, 0);
        for (std::uint32_t line = 0; line < lineCount(*source); ++line)
            if (inUse(*source, line) && itemOf(*source, line) < details.values.size())
                details.values[itemOf(*source, line)] = 1;
        return true;
    }
    if (!isLine(*source, details.dwControlID))
        return false;
    for (std::size_t channel = 0; channel < details.values.size(); ++channel)
        details.values[channel] = shownVolume(*source, channel);
    return true;
}

bool SourceMixer::mixerSetControlDetails(MixerHandle handle, const MixerControlDetails& details)
{
    const auto source = sourceOf(handle);
    if (!source)
        return false;
    if (details.dwControlID == kWaveInId)
        return selectItem(*source, details.values);
    return isLine(*source, details.dwControlID) && !details.values.empty() &&
           setVolumes(*source, details.values);
}

std::optional<SoundInput> SourceMixer::sourceOf(MixerHandle handle)
{
    const auto open = m_open.find(handle);
    return open == m_open.end() ? std::nullopt : m_inputs.input(open->second);
}

/// A line that is in use already is left alone: choosing a port can make a server restore another volume.
bool SourceMixer::selectItem(const SoundInput& source, std::span<const std::uint32_t> items)
{
    for (std::uint32_t line = 0; line < lineCount(source); ++line)
        if (itemOf(source, line) < items.size() && items[itemOf(source, line)] != 0)
            return inUse(source, line) || m_inputs.setPort(source.id, source.ports[line].id);
    return false;
}

/// A channel that shows the volume already is left alone: it may be louder than can be shown, and is not to
/// become less so by being looked at.
bool SourceMixer::setVolumes(const SoundInput& source, std::span<const std::uint32_t> volumes)
{
    std::vector<std::uint32_t> wanted = source.volumes;
    bool audible = false;
    for (std::size_t channel = 0; channel < wanted.size(); ++channel) {
        const std::uint32_t volume = volumes[std::min(channel, volumes.size() - 1)];
        audible = audible || volume > 0;
        if (shownVolume(source, channel) != volume)
            wanted[channel] = toServerVolume(volume);
    }
    bool done = wanted == source.volumes || m_inputs.setVolumes(source.id, wanted);
    if (source.muted && audible)
        done = m_inputs.setMuted(source.id, false) && done;
    return done;
}

} // namespace quillora::audio
