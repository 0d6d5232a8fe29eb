#pragma once

#include "messages/window_message.h"

#include <cstdint>
#include <string>

namespace quillora::audio {

/// An open wave input; 0 is none.
using WaveHandle = std::uint32_t;

/// How samples are laid out, with the fields of the header of a WAVE file.
struct WaveFormat {
    std::uint16_t wFormatTag;
    std::uint16_t nChannels;
    std::uint32_t nSamplesPerSec;
    std::uint32_t nAvgBytesPerSec;
    std::uint16_t nBlockAlign;
    std::uint16_t wBitsPerSample;
    std::uint16_t cbSize;
};
inline constexpr std::uint16_t kWaveFormatPcm = 1;

/// A buffer as it is handed to the device and back.
struct WaveHeader {
    std::int16_t* lpData = nullptr;
    std::uint32_t dwBufferLength = 0;
    /// Filled in by the device before it tells that the buffer is done.
    std::uint32_t dwBytesRecorded = 0;
    /// Its owner's own.
    std::uintptr_t dwUser = 0;
};

/// The wave input devices of the machine. A device is known by its number among them, the default one first;
/// -1 is the default one whatever its number. It fills the buffers that it is handed, in turn and in whole
/// samples, and posts kWaveInputDataMessage for each, to a window of the one thread, from which all is
/// called. No call waits for long: a device, or a sound server, that doesn't answer fails.
class WaveInput {
  public:
    virtual ~WaveInput() = default;

    /// Looks anew; the numbers hold until the next call.
    virtual int waveInGetNumDevs() = 0;
    /// A field of kDeviceNameField characters; all NULs for a device that isn't there.
    virtual std::string waveInGetDevName(int device) = 0;

    /// @p format has 16 bits a sample. 0 on failure.
    virtual WaveHandle waveInOpen(int device, const WaveFormat& format, messages::WindowHandle notify) = 0;
    /// From here on, and until it is unprepared or the device closed, @p header stays where it is. False on
    /// failure, as below.
    virtual bool waveInPrepareHeader(WaveHandle handle, WaveHeader& header) = 0;
    virtual bool waveInUnprepareHeader(WaveHandle handle, WaveHeader& header) = 0;
    /// Queues a prepared buffer to be filled.
    virtual bool waveInAddBuffer(WaveHandle handle, WaveHeader& header) = 0;
    virtual bool waveInStart(WaveHandle handle) = 0;
    /// Posts the buffer that is being filled, as far as it is.
    virtual bool waveInStop(WaveHandle handle) = 0;
    /// Posts all buffers that are queued.
    virtual bool waveInReset(WaveHandle handle) = 0;
    virtual bool waveInClose(WaveHandle handle) = 0;

    /// The header at the address that a message carries, or none when no prepared one lies there.
    virtual const WaveHeader* headerAt(messages::Parameter address) const = 0;
};

} // namespace quillora::audio
