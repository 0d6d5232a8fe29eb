#pragma once

#include "audio/sound_inputs.h"
#include "tests/support/call_log.h"

#include <algorithm>
#include <string>
#include <vector>

namespace quillora::tests {

/// A sound server's inputs, which a test can plug and pull.
class FakeSoundInputs : public audio::SoundInputs {
  public:
    explicit FakeSoundInputs(CallLog& callLog) : log(callLog) {}

    CallLog& log;
    std::vector<audio::SoundInput> present{};
    bool answers = true;

    std::optional<std::vector<audio::SoundInput>> inputs() override
    {
        return answers ? std::optional(present) : std::nullopt;
    }
    std::optional<audio::SoundInput> input(const std::string& id) override
    {
        const auto* found = find(id);
        return found ? std::optional(*found) : std::nullopt;
    }
    bool setPort(const std::string& id, const std::string& port) override
    {
        log.add("setPort " + id + " " + port);
        return change(id, [&](audio::SoundInput& input) { input.activePort = port; });
    }
    bool setVolumes(const std::string& id, const std::vector<std::uint32_t>& volumes) override
    {
        std::string call = "setVolumes " + id;
        for (const std::uint32_t volume : volumes)
            call += " " + std::to_string(volume);
        log.add(call);
        return change(id, [&](audio::SoundInput& input) { input.volumes = volumes; });
    }
    bool setMuted(const std::string& id, bool muted) override
    {
        log.add("setMuted " + id + (muted ? " on" : " off"));
        return change(id, [&](audio::SoundInput& input) { input.muted = muted; });
    }

  private:
    audio::SoundInput* find(const std::string& id)
    {
        const auto found = std::ranges::find(present, id, &audio::SoundInput::id);
        return answers && found != present.end() ? &*found : nullptr;
    }
    template <typename Change>
    bool change(const std::string& id, const Change& apply)
    {
        audio::SoundInput* found = find(id);
        if (found)
            apply(*found);
        return found != nullptr;
    }
};

} // namespace quillora::tests
