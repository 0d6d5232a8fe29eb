#pragma once

#include "audio/sound_inputs.h"
#include "base/platform/pulse/pulse_connection.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace quillora::audio {

/// Asks a sound server about its inputs and sets them, over a connection that is kept. No call waits longer
/// than kPatience; after one that waited in vain, calls fail at once for kRest, so that a dialog which asks
/// twenty things of a server that hangs does not hang twenty times. A server that was started again is found
/// again. For the one thread of forms and logic.
class PulseServer : public SoundInputs {
  public:
    static constexpr std::chrono::milliseconds kPatience{1000};
    static constexpr std::chrono::milliseconds kRest{1000};

    /// @p server is PULSE_SERVER's syntax; without it the user's server.
    explicit PulseServer(std::optional<std::string> server = std::nullopt);

    std::optional<std::vector<SoundInput>> inputs() override;
    std::optional<SoundInput> input(const std::string& id) override;
    bool setPort(const std::string& id, const std::string& port) override;
    bool setVolumes(const std::string& id, const std::vector<std::uint32_t>& volumes) override;
    bool setMuted(const std::string& id, bool muted) override;

  private:
    using Begin = std::function<pa_operation*(pa_context*)>;

    /// Whether the operation that @p begin begins ran to its end. Its callbacks are called before that only.
    bool perform(const Begin& begin);
    bool performOnce(const Begin& begin, base::PulseConnection::Clock::time_point deadline);
    /// The same for one that says whether it succeeded.
    bool order(const std::function<pa_operation*(pa_context*, pa_context_success_cb_t, void*)>& begin);

    std::optional<std::string> m_address;
    std::optional<base::PulseConnection> m_loop{};
    base::PulseConnection::Clock::time_point m_restUntil{};
};

} // namespace quillora::audio
