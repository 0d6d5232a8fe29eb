#pragma once

#include "audio/mixer.h"
#include "audio/text_field.h"
#include "tests/support/call_log.h"

#include <algorithm>
#include <set>
#include <string>
#include <vector>

namespace quillora::tests {

/// One mixer for all devices: speakers without sources, and the wave input with the lines that it has.
class FakeMixer : public audio::Mixer {
  public:
    explicit FakeMixer(CallLog& callLog) : log(callLog) {}

    struct Line {
        std::string name;
        std::uint32_t type = audio::line_type::kMicrophone;
        std::vector<std::uint32_t> volumes{65535, 65535};
        bool hasVolume = true;
    };

    CallLog& log;
    std::vector<Line> lines{{"Microphone"}};
    /// Of the multiplexer, whose items run against the lines.
    std::vector<std::uint32_t> items{1};
    bool hasMultiplexer = true;
    bool hasWaveIn = true;
    /// Number of the wave input among the destinations.
    std::uint32_t waveIn = 1;
    std::set<int> deadDevices{};
    /// Everything but opening fails.
    bool dead = false;
    int openMixers = 0;
    int timesAskedForDestinations = 0;

    audio::MixerHandle mixerOpen(int device) override
    {
        log.add("mixerOpen " + std::to_string(device));
        if (deadDevices.contains(device))
            return 0;
        ++openMixers;
        return kHandle;
    }
    void mixerClose(audio::MixerHandle) override
    {
        log.add("mixerClose");
        --openMixers;
    }
    int mixerGetDestinations(audio::MixerHandle handle) override
    {
        ++timesAskedForDestinations;
        return answers(handle) ? static_cast<int>(waveIn) + 1 : 0;
    }
    bool mixerGetLineInfo(audio::MixerHandle handle, audio::MixerLine& line, audio::LineQuery query) override
    {
        if (!answers(handle))
            return false;
        switch (query) {
        case audio::LineQuery::byDestination:
            return destination(line.dwDestination, line);
        case audio::LineQuery::bySource:
            return line.dwDestination == waveIn && source(line.dwSource, line);
        case audio::LineQuery::byComponentType:
            return byType(line.dwComponentType, line);
        }
        return false;
    }
    bool mixerGetLineControls(audio::MixerHandle handle, std::uint32_t lineId, std::uint32_t controlType,
                              std::span<audio::MixerControl> controls) override
    {
        if (!answers(handle) || controls.empty())
            return false;
        if (lineId == kWaveInLine && controlType == audio::control_type::kMultiplexer && hasMultiplexer) {
            controls[0] = {kMultiplexerControl, controlType, static_cast<std::uint32_t>(items.size())};
            return true;
        }
        if (lineId >= kFirstSourceLine && controlType == audio::control_type::kVolume &&
            lines.at(lineId - kFirstSourceLine).hasVolume) {
            controls[0] = {kFirstVolumeControl + lineId - kFirstSourceLine, controlType, 0};
            return true;
        }
        return false;
    }
    bool mixerGetControlDetails(audio::MixerHandle handle, const audio::MixerControlDetails& details) override
    {
        auto* values = valuesOf(details.dwControlID);
        if (!answers(handle) || !values)
            return false;
        std::copy_n(values->begin(), std::min(values->size(), details.values.size()), details.values.begin());
        return true;
    }
    bool mixerSetControlDetails(audio::MixerHandle handle, const audio::MixerControlDetails& details) override
    {
        auto* values = valuesOf(details.dwControlID);
        if (!answers(handle) || !values)
            return false;
        std::string call = "set " + std::to_string(details.dwControlID);
        for (const std::uint32_t value : details.values)
            call += " " + std::to_string(value);
        log.add(call);
        std::copy_n(details.values.begin(), std::min(values->size(), details.values.size()), values->begin());
        return true;
    }

    static constexpr std::uint32_t kMultiplexerControl = 9;
    static constexpr std::uint32_t kFirstVolumeControl = 20;

  private:
    static constexpr audio::MixerHandle kHandle = 3;
    static constexpr std::uint32_t kWaveInLine = 50;
    static constexpr std::uint32_t kFirstSourceLine = 60;

    bool answers(audio::MixerHandle handle) const { return handle == kHandle && !dead; }

    bool destination(std::uint32_t number, audio::MixerLine& line) const
    {
        if (number > waveIn)
            return false;
        line = {.dwDestination = number, .dwLineID = 40, .dwComponentType = audio::line_type::kSpeakers};
        if (number == waveIn && hasWaveIn) {
            line.dwLineID = kWaveInLine;
            line.dwComponentType = audio::line_type::kWaveIn;
            line.cConnections = static_cast<std::uint32_t>(lines.size());
            line.cControls = hasMultiplexer ? 2 : 0;
        }
        return true;
    }
    bool source(std::uint32_t number, audio::MixerLine& line) const
    {
        if (number >= lines.size())
            return false;
        const Line& found = lines[number];
        line = {.dwDestination = waveIn,
                .dwSource = number,
                .dwLineID = kFirstSourceLine + number,
                .dwComponentType = found.type,
                .cChannels = static_cast<std::uint32_t>(found.volumes.size()),
                .cControls = 1,
                .szName = audio::paddedField(found.name, audio::kLineNameField)};
        return true;
    }
    bool byType(std::uint32_t type, audio::MixerLine& line) const
    {
        if (type == audio::line_type::kWaveIn && hasWaveIn)
            return destination(waveIn, line);
        for (std::uint32_t number = 0; number < lines.size(); ++number)
            if (lines[number].type == type)
                return source(number, line);
        return false;
    }
    std::vector<std::uint32_t>* valuesOf(std::uint32_t control)
    {
        if (control == kMultiplexerControl)
            return &items;
        if (control < kFirstVolumeControl || control - kFirstVolumeControl >= lines.size())
            return nullptr;
        return &lines[control - kFirstVolumeControl].volumes;
    }
};

} // namespace quillora::tests
