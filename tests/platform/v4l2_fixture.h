#pragma once

#include "stage/platform/v4l2/v4l2_video_cap.h"
#include "tests/support/fake_camera/fake_camera_script.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <functional>
#include <string>
#include <thread>
#include <vector>

namespace quillora::tests {

using namespace std::chrono_literals;

inline bool waitUntil(const std::function<bool()>& done)
{
    const auto deadline = std::chrono::steady_clock::now() + 20s;
    while (!done()) {
        if (std::chrono::steady_clock::now() > deadline)
            return false;
        std::this_thread::sleep_for(2ms);
    }
    return true;
}

/// Does what a test puts into it while it is "open".
class FakeSettingsDialog : public stage::CameraSettingsDialog {
  public:
    std::function<void(stage::CameraSettings&)> whileOpen = [](auto&) {};

    void showModal(stage::CameraSettings& camera) override { whileOpen(camera); }
};

/// The adapter with the fake cameras.
class V4l2VideoCapTest : public testing::Test {
  protected:
    ~V4l2VideoCapTest() override
    {
        // What a test has stalled must not outlive it.
        for (const char* device : {"video0", "video1", "video2"})
            script.set(device, "present");
    }

    void connect(int index)
    {
        camera.deviceCount();
        camera.setDeviceIndex(index);
        camera.setConnected(true);
        camera.setPreview(true);
    }

    /// The next picture that is not empty.
    bool waitForPicture()
    {
        return waitUntil([&] { return frames.take(frame) && !frame.empty(); });
    }

    std::uint32_t pixel(int x, int y) const { return frame.pixels.at(std::size_t(y * frame.width + x)); }

    void expectColour(int x, int y, int red, int green, int blue)
    {
        const std::uint32_t got = pixel(x, y);
        EXPECT_NEAR(got >> 16 & 0xFF, red, 12) << x << ',' << y;
        EXPECT_NEAR(got >> 8 & 0xFF, green, 12) << x << ',' << y;
        EXPECT_NEAR(got & 0xFF, blue, 12) << x << ',' << y;
    }

    bool wasSet(const char* device, const std::string& line) const
    {
        const auto log = script.log(device);
        return std::ranges::find(log, line) != log.end();
    }

    FakeCameraScript script;
    stage::NewestFrame frames;
    stage::CameraFrame frame;
    FakeSettingsDialog dialog;
    int turns = 0;
    // As long as a busy machine may take.
    stage::V4l2VideoCap camera{{.frames = frames,
                                .dialog = dialog,
                                .patience = {.longest = 20s, .letEventsThrough = [this] { ++turns; }}}};
    // For devices that never answer.
    stage::V4l2VideoCap impatient{{.frames = frames,
                                   .dialog = dialog,
                                   .patience = {.longest = 1500ms, .letEventsThrough = [this] { ++turns; }}}};
};

} // namespace quillora::tests
