#pragma once

#include "audio/text_field.h"
#include "audio/wave_input.h"
#include "messages/message_windows.h"
#include "tests/support/call_log.h"

#include <algorithm>
#include <set>
#include <string>
#include <vector>

namespace quillora::tests {

/// Wave input devices that record what a test gives them. Calls are logged with the number of the buffer.
class FakeWaveInput : public audio::WaveInput {
  public:
    FakeWaveInput(CallLog& callLog, messages::MessageWindows& windows) : log(callLog), m_windows(windows) {}

    CallLog& log;
    std::vector<std::string> devices{"Microphone"};
    /// Calls that are to fail, such as "waveInStart" or "waveInPrepareHeader 2".
    std::set<std::string> failing{};
    audio::WaveFormat format{};
    std::vector<audio::WaveHeader*> prepared{};
    std::vector<audio::WaveHeader*> queued{};

    /// Fills the buffer that was queued first, and posts it.
    void record(const std::vector<std::int16_t>& samples)
    {
        audio::WaveHeader& header = *queued.at(0);
        queued.erase(queued.begin());
        std::ranges::copy(samples, header.lpData);
        header.dwBytesRecorded = static_cast<std::uint32_t>(samples.size() * sizeof(std::int16_t));
        m_windows.post({m_notify, 960, 1, reinterpret_cast<messages::Parameter>(&header)});
    }
    messages::WindowHandle notified() const { return m_notify; }

    int waveInGetNumDevs() override { return static_cast<int>(devices.size()); }
    std::string waveInGetDevName(int device) override
    {
        return audio::paddedField(devices.at(static_cast<std::size_t>(device)), audio::kDeviceNameField);
    }
    audio::WaveHandle waveInOpen(int device, const audio::WaveFormat& wanted,
                                 messages::WindowHandle notify) override
    {
        format = wanted;
        m_notify = notify;
        return call("waveInOpen " + std::to_string(device)) ? 5 : 0;
    }
    bool waveInPrepareHeader(audio::WaveHandle, audio::WaveHeader& header) override
    {
        if (!call("waveInPrepareHeader " + std::to_string(header.dwUser)))
            return false;
        prepared.push_back(&header);
        return true;
    }
    bool waveInUnprepareHeader(audio::WaveHandle, audio::WaveHeader& header) override
    {
        std::erase(prepared, &header);
        return call("waveInUnprepareHeader " + std::to_string(header.dwUser));
    }
    bool waveInAddBuffer(audio::WaveHandle, audio::WaveHeader& header) override
    {
        queued.push_back(&header);
        return call("waveInAddBuffer " + std::to_string(header.dwUser));
    }
    bool waveInStart(audio::WaveHandle) override { return call("waveInStart"); }
    bool waveInStop(audio::WaveHandle) override { return call("waveInStop"); }
    bool waveInReset(audio::WaveHandle) override
    {
        queued.clear();
        return call("waveInReset");
    }
    bool waveInClose(audio::WaveHandle) override
    {
        prepared.clear();
        return call("waveInClose");
    }
    const audio::WaveHeader* headerAt(messages::Parameter address) const override
    {
        for (const audio::WaveHeader* header : prepared)
            if (reinterpret_cast<messages::Parameter>(header) == address)
                return header;
        return nullptr;
    }

  private:
    bool call(const std::string& name)
    {
        log.add(name);
        return !failing.contains(name);
    }

    messages::MessageWindows& m_windows;
    messages::WindowHandle m_notify = 0;
};

} // namespace quillora::tests
