#include "audio/input_numbers.h"

#include <algorithm>

namespace quillora::audio {

int InputNumbers::refresh()
{
    if (const auto inputs = m_inputs.inputs())
        for (const SoundInput& input : *inputs)
            if (std::ranges::find(m_known, input.id, &SoundInput::id) == m_known.end())
                m_known.push_back(input);
    return static_cast<int>(m_known.size());
}

const SoundInput* InputNumbers::at(int number) const
{
    return number >= 0 && number < static_cast<int>(m_known.size())
               ? &m_known[static_cast<std::size_t>(number)]
               : nullptr;
}

} // namespace quillora::audio
