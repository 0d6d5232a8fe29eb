#pragma once

#include "capture/sound_source.h"

#include <chrono>
#include <optional>
#include <stop_token>
#include <string>
#include <thread>

namespace quillora::capture {

/// The default input of a PulseAudio server, or of another one that speaks its protocol. It is read on a
/// thread of its own, which connects again, with growing pauses, for as long as there is no input or no
/// server.
class PulseSoundSource final : public SoundSource {
  public:
    /// @p server is PULSE_SERVER's syntax; without it the user's server.
    explicit PulseSoundSource(std::optional<std::string> server = std::nullopt);
    ~PulseSoundSource() override;

    /// A source that has been started already delivers to the new sink only.
    void start(SoundSink& sink) override;
    void stop() override;
    std::vector<std::string> inputNames() override;

  private:
    void read(const std::stop_token& stop, SoundSink& sink) const;
    bool readOneConnection(const std::stop_token& stop, SoundSink& sink) const;

    std::optional<std::string> m_server;
    std::jthread m_thread;
};

} // namespace quillora::capture
