#pragma once

#include "audio/mixer.h"
#include "audio/wave_input.h"

#include <array>
#include <optional>
#include <string>

namespace quillora::audio {

/// The wave input devices, and of the chosen one the lines that it can record: which of them is in use, and
/// its volume from 0 to 65535. What is set here acts on every recording of the machine and outlasts the
/// program. A machine on which something is missing or fails gives 0, -1, nothing or false. The mixer of the
/// chosen device stays open until the next choice or the end of this object. On the one thread of forms and
/// logic.
class MixerLines {
  public:
    /// Both must outlive this object.
    MixerLines(WaveInput& devices, Mixer& mixer) : m_devices(devices), m_mixer(mixer) {}
    ~MixerLines();
    MixerLines(const MixerLines&) = delete;
    MixerLines& operator=(const MixerLines&) = delete;

    int DeviceCount() { return m_devices.waveInGetNumDevs(); }
    /// With its padding of NULs.
    std::string DeviceName(int index) { return m_devices.waveInGetDevName(index); }
    /// False, and nothing is changed, for a number that no device has. False, and none is chosen, for a
    /// device whose mixer doesn't open.
    bool SelectDevice(int index);
    /// -1 for none.
    int SelectedDevice() const { return m_selectedDevice; }

    int MixerLineCount();
    /// With its padding of NULs; empty when there is no such line.
    std::string MixerLineName(int index);
    /// True also where there is no choice to make.
    bool SelectMixerLine(int index);
    /// Number of the line in use; -1 when there are none.
    int SelectedMixerLine();
    /// One of line_type, 0 for no line. -1 stands for the line in use.
    std::uint32_t MixerLineType(int index = -1);
    std::uint32_t MixerLineVolume();
    /// Sets both channels.
    void MixerLineVolume(std::uint32_t volume);

  private:
    /// Left and right.
    using VolumePair = std::array<std::uint32_t, 2>;
    enum class Access { read, write };

    std::optional<MixerLine> FindWaveInDestination();
    std::optional<MixerLine> multiplexedLine();
    bool setMultiplexer(const MixerControl& control, int item);
    bool SetMuxItem(int item);
    int GetMuxItem();
    std::uint32_t FindLineControl(std::uint32_t componentType, std::uint32_t controlType,
                                  std::uint32_t lineId);
    void accessLineVolume(Access access, std::uint32_t destination, int source, VolumePair& pair);
    VolumePair ReadLineVolume(std::uint32_t destination, int source);
    void WriteLineVolume(std::uint32_t destination, int source, VolumePair pair);

    WaveInput& m_devices;
    Mixer& m_mixer;
    int m_selectedDevice = -1;
    MixerHandle m_mixerHandle = 0;
};

/// What people call a line of this type, for whoever looks into the program.
std::string lineTypeWord(std::uint32_t type);

} // namespace quillora::audio
