#pragma once

#include "audio/input_numbers.h"
#include "audio/mixer.h"

#include <map>

namespace quillora::audio {

/// The inputs of a sound server as mixers. An input's ports are the lines of its wave input; one without
/// ports is its own, single line. The input has one volume, which each of its lines shows. A line that is
/// muted has volume 0, and setting another volume ends that: the level is looked at before a lecture, and a
/// muted microphone must not pass for a loud one. Each call asks the server anew.
class SourceMixer : public Mixer {
  public:
    /// Both outlive this object.
    SourceMixer(SoundInputs& inputs, const InputNumbers& numbers) : m_inputs(inputs), m_numbers(numbers) {}

    MixerHandle mixerOpen(int waveInputDevice) override;
    void mixerClose(MixerHandle handle) override;
    int mixerGetDestinations(MixerHandle handle) override;
    bool mixerGetLineInfo(MixerHandle handle, MixerLine& line, LineQuery query) override;
    bool mixerGetLineControls(MixerHandle handle, std::uint32_t lineId, std::uint32_t controlType,
                              std::span<MixerControl> controls) override;
    bool mixerGetControlDetails(MixerHandle handle, const MixerControlDetails& details) override;
    bool mixerSetControlDetails(MixerHandle handle, const MixerControlDetails& details) override;

  private:
    std::optional<SoundInput> sourceOf(MixerHandle handle);
    bool selectItem(const SoundInput& source, std::span<const std::uint32_t> items);
    bool setVolumes(const SoundInput& source, std::span<const std::uint32_t> volumes);

    SoundInputs& m_inputs;
    const InputNumbers& m_numbers;
    /// What is open, by the ids of the inputs.
    std::map<MixerHandle, std::string> m_open{};
    MixerHandle m_last = 0;
};

} // namespace quillora::audio
