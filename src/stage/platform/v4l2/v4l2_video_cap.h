#pragma once

#include "stage/camera_mailbox.h"
#include "stage/camera_settings.h"
#include "stage/newest_frame.h"
#include "stage/patience.h"
#include "stage/platform/v4l2/camera_nodes.h"
#include "stage/platform/v4l2/camera_thread.h"
#include "stage/video_cap_x.h"

#include <memory>
#include <string>
#include <vector>

namespace quillora::stage {

/// VideoCapX on Linux's own camera interface. Finding the devices and opening one are waited for, with a
/// bound, since their results are asked for at once; everything else is handed to the camera's thread. A
/// camera that takes longer to open is connected later.
class V4l2VideoCap : public VideoCapX, private CameraSettings {
  public:
    struct Ports {
        NewestFrame& frames;
        CameraSettingsDialog& dialog;
        Patience patience{};
    };
    /// What the ports refer to must outlive this object.
    explicit V4l2VideoCap(Ports ports);
    ~V4l2VideoCap() override;

    bool connected() const override;
    void setConnected(bool connected) override;
    void setPreview(bool running) override;
    int deviceCount() override;
    std::string deviceName(int index) override;
    void setDeviceIndex(int index) override;
    void setVideoInput(std::int32_t index) override;
    void setVideoStandard(std::int16_t index) override;
    std::optional<VideoControlRange> videoControlRange(int index) override;
    void setVideoControlValue(int index, int value) override;
    void showSettings() override;

  private:
    std::vector<CameraSetting> settings() const override;
    void refreshSettings() override;
    void changeSetting(std::uint32_t id, int value) override;

    void connect();
    void disconnect();
    std::optional<CameraSetting> setting(std::uint32_t id) const;

    /// A device that was abandoned, and may not be closed yet.
    struct Leaving {
        std::string node;
        std::shared_ptr<CameraMailbox> mailbox;
    };

    Ports m_ports;
    v4l2::CameraNodes m_nodes;
    std::vector<v4l2::CameraNode> m_found;
    int m_deviceIndex = 0;
    v4l2::CameraTarget m_target;
    /// Of the device that is open or being opened; null when there is none.
    std::shared_ptr<CameraMailbox> m_mailbox;
    std::vector<Leaving> m_leaving;
};

} // namespace quillora::stage
