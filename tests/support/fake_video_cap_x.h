#pragma once

#include "stage/video_cap_x.h"
#include "tests/support/call_log.h"
#include "tests/support/failing_calls.h"

#include <map>
#include <vector>

namespace quillora::tests {

/// Cameras made of names and numbers.
class FakeVideoCapX : public stage::VideoCapX {
  public:
    explicit FakeVideoCapX(CallLog& callLog) : log(callLog) {}

    CallLog& log;
    /// "setConnected", "setPreview", "deviceCount", "videoControlRange", "setVideoControlValue",
    /// "showSettings".
    FailingCalls failing{};
    std::vector<std::string> names{};
    /// A control that is missing here is one that the device lacks.
    std::map<int, stage::VideoControlRange> ranges{};
    bool isConnected = false;
    bool preview = false;
    int deviceIndex = -1;

    bool connected() const override { return isConnected; }
    void setConnected(bool connected) override
    {
        log.add(connected ? "camera.connect" : "camera.disconnect");
        isConnected = false;
        preview = false;
        if (!connected)
            return;
        failing.check("setConnected");
        if (deviceIndex < 0 || deviceIndex >= int(names.size()))
            throw std::runtime_error("no such camera");
        isConnected = true;
    }
    void setPreview(bool running) override
    {
        log.add(running ? "camera.preview on" : "camera.preview off");
        failing.check("setPreview");
        preview = running && isConnected;
    }
    int deviceCount() override
    {
        failing.check("deviceCount");
        return int(names.size());
    }
    std::string deviceName(int index) override { return names.at(std::size_t(index)); }
    void setDeviceIndex(int index) override
    {
        log.add("camera.device " + std::to_string(index));
        deviceIndex = index;
    }
    void setVideoInput(std::int32_t index) override { log.add("camera.input " + std::to_string(index)); }
    void setVideoStandard(std::int16_t index) override
    {
        log.add("camera.standard " + std::to_string(index));
    }
    std::optional<stage::VideoControlRange> videoControlRange(int index) override
    {
        failing.check("videoControlRange");
        const auto found = ranges.find(index);
        if (!isConnected || found == ranges.end())
            return std::nullopt;
        return found->second;
    }
    void setVideoControlValue(int index, int value) override
    {
        log.add("camera.value " + std::to_string(index) + " " + std::to_string(value));
        failing.check("setVideoControlValue");
    }
    void showSettings() override
    {
        log.add("camera.settings");
        failing.check("showSettings");
    }
};

} // namespace quillora::tests
