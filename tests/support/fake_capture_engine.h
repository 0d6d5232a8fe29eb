#pragma once

#include "capture/capture_engine.h"
#include "tests/support/call_log.h"
#include "tests/support/failing_calls.h"

#include <algorithm>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

namespace quillora::tests {

/// Records nothing, but leaves a file where a recording would be, and every call in the log as "engine.Name
/// value". Files that it "records" hold their own number, so that one video can be told from another.
class FakeCaptureEngineFactory : public capture::CaptureEngineFactory {
  public:
    explicit FakeCaptureEngineFactory(CallLog& callLog) : log(callLog) {}

    CallLog& log;
    /// "create", or a name of the engine's interface.
    FailingCalls failing{};
    int created = 0;
    int alive = 0;
    int mostAlive = 0;
    int recordings = 0;
    std::vector<std::string> videoCodecs{"Windows Media Video 8", "Windows Media Screen"};
    std::vector<std::string> audioDevices{"Microphone", "Headset"};
    std::vector<std::string> audioLines{"Default input"};

    std::unique_ptr<capture::CaptureEngine> create() override;
};

class FakeCaptureEngine : public capture::CaptureEngine {
  public:
    explicit FakeCaptureEngine(FakeCaptureEngineFactory& factory) : m_factory(factory)
    {
        m_factory.mostAlive = std::max(m_factory.mostAlive, ++m_factory.alive);
    }
    ~FakeCaptureEngine() override { --m_factory.alive; }

    void setBitrate(std::int32_t bitsPerSecond) override { call("Bitrate", bitsPerSecond); }
    void setCaptureMode(capture::CaptureMode mode) override { call("CaptureMode", static_cast<int>(mode)); }
    void setLeft(std::int32_t pixels) override { call("Left", pixels); }
    void setTop(std::int32_t pixels) override { call("Top", pixels); }
    void setWidth(std::int32_t pixels) override { call("Width", pixels); }
    void setHeight(std::int32_t pixels) override { call("Height", pixels); }
    void setFrameRate(float framesPerSecond) override { call("FrameRate", framesPerSecond); }
    void setFileName(const std::filesystem::path& path) override
    {
        m_fileName = path;
        call("FileName", path.extension().string());
    }
    void setOutputWidth(std::int32_t pixels) override { call("OutputWidth", pixels); }
    void setOutputHeight(std::int32_t pixels) override { call("OutputHeight", pixels); }
    void setCaptureCursor(bool on) override { call("CaptureCursor", on ? "true" : "false"); }
    void setHighlightCursor(bool on) override { call("HighlightCursor", on ? "true" : "false"); }
    void setHighlightSize(std::int32_t pixels) override { call("HighlightSize", pixels); }

    void Start() override
    {
        call("Start");
        if (m_running)
            return;
        m_running = true;
        std::ofstream(m_fileName) << "video " << ++m_factory.recordings;
    }
    void Pause() override { call("Pause"); }
    void Stop() override
    {
        call("Stop");
        m_running = false;
    }

    std::int32_t VideoCodecCount() const override { return count("VideoCodec", m_factory.videoCodecs); }
    std::string VideoCodecName(std::int32_t index) const override
    {
        return name("VideoCodec", m_factory.videoCodecs, index);
    }
    std::int32_t AudioDeviceCount() const override { return count("AudioDevice", m_factory.audioDevices); }
    std::string AudioDeviceName(std::int32_t index) const override
    {
        return name("AudioDevice", m_factory.audioDevices, index);
    }
    std::int32_t AudioLineCount() const override { return count("AudioLine", m_factory.audioLines); }
    std::string AudioLineName(std::int32_t index) const override
    {
        return name("AudioLine", m_factory.audioLines, index);
    }

  private:
    /// The lists are asked before a recording, not in it, and so have a beginning of their own in the log.
    std::int32_t count(const std::string& list, const std::vector<std::string>& names) const
    {
        m_factory.log.add("list " + list + "Count");
        m_factory.failing.check(list + "Count");
        return static_cast<std::int32_t>(names.size());
    }
    std::string name(const std::string& list, const std::vector<std::string>& names, std::int32_t index) const
    {
        m_factory.log.add("list " + list + "Name " + std::to_string(index));
        return names.at(static_cast<std::size_t>(index));
    }
    void call(const std::string& name)
    {
        m_factory.log.add("engine." + name);
        m_factory.failing.check(name);
    }
    template <typename Value>
    void call(const std::string& name, const Value& value)
    {
        std::ostringstream text;
        text << "engine." << name << ' ' << value;
        m_factory.log.add(text.str());
        m_factory.failing.check(name);
    }

    FakeCaptureEngineFactory& m_factory;
    std::filesystem::path m_fileName{};
    bool m_running = false;
};

inline std::unique_ptr<capture::CaptureEngine> FakeCaptureEngineFactory::create()
{
    failing.check("create");
    ++created;
    return std::make_unique<FakeCaptureEngine>(*this);
}

} // namespace quillora::tests
