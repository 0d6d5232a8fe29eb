#pragma once

#include <cstdint>
#include <span>
#include <string>

namespace quillora::audio {

/// An open mixer; 0 is none.
using MixerHandle = std::uint32_t;

/// Kinds of lines.
namespace line_type {
inline constexpr std::uint32_t kSpeakers = 4;
inline constexpr std::uint32_t kWaveIn = 7;
inline constexpr std::uint32_t kUndefined = 0x1000;
inline constexpr std::uint32_t kDigital = 0x1001;
inline constexpr std::uint32_t kLineIn = 0x1002;
inline constexpr std::uint32_t kMicrophone = 0x1003;
inline constexpr std::uint32_t kSynthesizer = 0x1004;
inline constexpr std::uint32_t kCompactDisc = 0x1005;
inline constexpr std::uint32_t kTelephone = 0x1006;
inline constexpr std::uint32_t kPcSpeaker = 0x1007;
inline constexpr std::uint32_t kWaveOut = 0x1008;
inline constexpr std::uint32_t kAuxiliary = 0x1009;
inline constexpr std::uint32_t kAnalog = 0x100A;
} // namespace line_type

/// Kinds of controls.
namespace control_type {
inline constexpr std::uint32_t kMultiplexer = 0x70010001;
inline constexpr std::uint32_t kVolume = 0x50030001;
} // namespace control_type

/// What of a line's record is given, when the rest is asked for.
enum class LineQuery : int { byDestination = 0, bySource = 1, byComponentType = 3 };

/// A destination of the mixer, such as the wave input, or one of the sources that feed it.
struct MixerLine {
    std::uint32_t dwDestination = 0;
    std::uint32_t dwSource = 0;
    std::uint32_t dwLineID = 0;
    std::uint32_t dwComponentType = 0;
    std::uint32_t cChannels = 0;
    /// How many sources feed it.
    std::uint32_t cConnections = 0;
    std::uint32_t cControls = 0;
    /// A field of kLineNameField characters.
    std::string szName{};
};

/// What of a line can be set: its volume, or which of its sources is heard.
struct MixerControl {
    std::uint32_t dwControlID = 0;
    std::uint32_t dwControlType = 0;
    /// Of a multiplexer: how many lines it chooses among.
    std::uint32_t cMultipleItems = 0;
};

/// The values of a control: one a channel, or, of a multiplexer, one an item: 1 for the one in use, 0 for the
/// others.
struct MixerControlDetails {
    std::uint32_t dwControlID;
    std::uint32_t cChannels;
    std::uint32_t cMultipleItems;
    /// As many as are read or written, but no more than the control has.
    std::span<std::uint32_t> values;
};

/// The mixers of the wave input devices. Volumes go from 0 to 65535. False, and nothing read or changed, on
/// failure. No call waits for long. On the one thread of forms and logic.
class Mixer {
  public:
    virtual ~Mixer() = default;

    /// By the number that the device has as a wave input. 0 on failure.
    virtual MixerHandle mixerOpen(int waveInputDevice) = 0;
    virtual void mixerClose(MixerHandle handle) = 0;
    /// How many destinations it has; 0 on failure.
    virtual int mixerGetDestinations(MixerHandle handle) = 0;
    /// Fills in @p line from those of its fields that @p query names: the destination, the destination and
    /// the source, or the component type, of which it gives the first line.
    virtual bool mixerGetLineInfo(MixerHandle handle, MixerLine& line, LineQuery query) = 0;
    /// The one control of this type that the line has, into the first of @p controls.
    virtual bool mixerGetLineControls(MixerHandle handle, std::uint32_t lineId, std::uint32_t controlType,
                                      std::span<MixerControl> controls) = 0;
    virtual bool mixerGetControlDetails(MixerHandle handle, const MixerControlDetails& details) = 0;
    virtual bool mixerSetControlDetails(MixerHandle handle, const MixerControlDetails& details) = 0;
};

} // namespace quillora::audio
