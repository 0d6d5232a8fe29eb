#pragma once

#include "audio/input_numbers.h"
#include "audio/platform/pulse/wave_in_stream.h"

#include <map>
#include <vector>

namespace quillora::audio {

/// The inputs of a sound server as wave inputs. Sound is read on a thread of each open input; messages go
/// through the queue.
class PulseWaveInput : public WaveInput {
  public:
    /// @p server is PULSE_SERVER's syntax; without it the user's server. The others outlive this object.
    PulseWaveInput(InputNumbers& numbers, messages::MessageQueue& queue,
                   std::optional<std::string> server = std::nullopt);

    int waveInGetNumDevs() override { return m_numbers.refresh(); }
    std::string waveInGetDevName(int device) override;
    WaveHandle waveInOpen(int device, const WaveFormat& format, messages::WindowHandle notify) override;
    bool waveInPrepareHeader(WaveHandle handle, WaveHeader& header) override;
    bool waveInUnprepareHeader(WaveHandle handle, WaveHeader& header) override;
    bool waveInAddBuffer(WaveHandle handle, WaveHeader& header) override;
    bool waveInStart(WaveHandle handle) override;
    bool waveInStop(WaveHandle handle) override;
    bool waveInReset(WaveHandle handle) override;
    bool waveInClose(WaveHandle handle) override;
    const WaveHeader* headerAt(messages::Parameter address) const override;

  private:
    struct Open {
        std::unique_ptr<WaveInStream> stream;
        std::vector<WaveHeader*> prepared{};
    };

    Open* find(WaveHandle handle);
    bool isPrepared(const Open& open, const WaveHeader& header) const;

    InputNumbers& m_numbers;
    messages::MessageQueue& m_queue;
    std::optional<std::string> m_server;
    std::map<WaveHandle, Open> m_open{};
    WaveHandle m_last = 0;
};

} // namespace quillora::audio
