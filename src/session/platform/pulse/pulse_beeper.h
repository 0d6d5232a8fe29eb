#pragma once

#include "session/beeper.h"

#include <optional>
#include <string>

namespace quillora::session {

/// Beeps through the default output of a PulseAudio server, or of another one that speaks its protocol. It
/// has heard the server confirm the end when it returns, so that a recording which starts next has no beep in
/// it.
class PulseBeeper final : public Beeper {
  public:
    /// @p server is PULSE_SERVER's syntax; without it the user's server.
    explicit PulseBeeper(std::optional<std::string> server = std::nullopt);

    void Beep(int frequencyHz, std::chrono::milliseconds duration) override;

  private:
    std::optional<std::string> m_server;
};

} // namespace quillora::session
