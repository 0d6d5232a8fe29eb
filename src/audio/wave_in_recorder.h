#pragma once

#include "audio/mixer_lines.h"
#include "messages/hook_engine.h"
#include "messages/message_windows.h"

#include <functional>
#include <span>
#include <vector>

namespace quillora::audio {

/// One wave input device with its mixer. It records 16-bit samples through a ring of buffers, and hands out
/// each full buffer in place. The narration of a lecture does not come through here; a level meter can. All
/// on the one thread of forms and logic: a handler that takes long delays the return of its buffer to the
/// device.
class WaveInRecorder : public MixerLines {
  public:
    struct Ports {
        WaveInput& input;
        Mixer& mixer;
        messages::MessageWindows& windows;
        messages::HookEngine::Ports hooks;
    };
    /// Of the samples only those within @p byteCount are the delivery's. They may be read during the call.
    using GotDataHandler = std::function<void(std::span<std::int16_t> samples, std::uint32_t byteCount)>;

    /// What the ports refer to must outlive this object.
    explicit WaveInRecorder(const Ports& ports);
    /// Stops a recording.
    ~WaveInRecorder();

    GotDataHandler GotData{};

    bool IsRecording() const { return m_waveInHandle != 0; }
    int BufferCount() const { return m_bufferCount; }
    /// How many buffers the device fills in turn, from the next recording on.
    void BufferCount(int count) { m_bufferCount = count; }
    /// In bytes.
    int BufferSize() const { return m_bufferSize; }
    /// From the next recording on; an odd size holds half as many samples, rounded half to even.
    void BufferSize(int bytes) { m_bufferSize = bytes; }

    /// @p sampleRate in samples a second of each of the @p channels (1 or 2), of 16 bits. False, and nothing
    /// is recorded, when the device refuses. A recording that is on is stopped first.
    bool StartRecord(int sampleRate, int channels);
    /// Always true.
    bool StopRecord();

  private:
    struct AudioBuffer {
        WaveHeader header{};
        std::vector<std::int16_t> samples{};
        /// Where the samples lie, as the header says, in a place that the device doesn't get to see.
        std::int16_t* data = nullptr;
    };

    bool prepareBuffers();
    bool prepare(std::size_t index);
    void unprepareBuffers();
    bool giveUp();
    void CreateMessageWindow();
    void DestroyMessageWindow();
    void HookMessageWindow();
    void UnhookMessageWindow();
    void OnHookedMessage(const messages::HookedMessage& message);

    WaveInput& m_input;
    messages::MessageWindows& m_windows;
    int m_bufferSize = 10240;
    int m_bufferCount = 5;
    WaveHandle m_waveInHandle = 0;
    messages::WindowHandle m_messageWindow = 0;
    /// The device writes into them, so that they stay where they are while it is open.
    std::vector<AudioBuffer> m_buffers{};
    messages::HookEngine m_hooks;
};

} // namespace quillora::audio
