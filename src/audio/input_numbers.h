#pragma once

#include "audio/sound_inputs.h"

#include <string>
#include <vector>

namespace quillora::audio {

/// The numbers by which wave inputs and mixers know the sound inputs. The first one is the
/// default input, which lectures are recorded from. An input keeps its number, also when it has gone: a list
/// that is on the screen must not come to mean other inputs.
class InputNumbers {
  public:
    /// @p inputs outlives this object.
    explicit InputNumbers(SoundInputs& inputs) : m_inputs(inputs) {}

    /// Looks for new ones. Returns how many there are or were.
    int refresh();
    /// None for a number that was never given.
    const SoundInput* at(int number) const;

  private:
    SoundInputs& m_inputs;
    std::vector<SoundInput> m_known{};
};

} // namespace quillora::audio
