#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace quillora::audio {

/// A sound input as a sound server tells of it.
struct SoundInput {
    /// One of several things that can be plugged into it, of which one is recorded.
    struct Port {
        std::string id;
        std::string description;
        /// One of line_type.
        std::uint32_t type;
    };

    std::string id{};
    std::string description{};
    /// It gives what a sound output plays.
    bool monitor = false;
    bool muted = false;
    /// One a channel, on the server's scale.
    std::vector<std::uint32_t> volumes{};
    std::vector<Port> ports{};
    /// Empty when there is none.
    std::string activePort{};
};

/// The sound inputs of the machine. No call waits for long.
class SoundInputs {
  public:
    virtual ~SoundInputs() = default;

    /// The default one first; of the monitors none but the default one. Nothing when there is no answer.
    virtual std::optional<std::vector<SoundInput>> inputs() = 0;
    /// Nothing when there is no such input, or no answer.
    virtual std::optional<SoundInput> input(const std::string& id) = 0;

    /// False when it isn't known to have been done.
    virtual bool setPort(const std::string& id, const std::string& port) = 0;
    virtual bool setVolumes(const std::string& id, const std::vector<std::uint32_t>& volumes) = 0;
    virtual bool setMuted(const std::string& id, bool muted) = 0;
};

} // namespace quillora::audio
