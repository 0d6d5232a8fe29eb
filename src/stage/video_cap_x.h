#pragma once

#include "stage/camera_connection.h"

#include <cstdint>
#include <optional>
#include <string>

namespace quillora::stage {

/// What a device says of one of its picture controls, in the device's own units.
struct VideoControlRange {
    int minimum = 0;
    int maximum = 0;
    int step = 1;
    int current = 0;

    bool operator==(const VideoControlRange&) const = default;
};

/// The picture controls that have a slider, by the number that they are asked for with.
enum VideoControl : int { kBrightness = 0, kContrast = 1, kHue = 2 };
inline constexpr int kVideoControlCount = 3;

/// The camera behind the surface `VideoCap1_back`: it finds devices, opens one, shows its live picture in the
/// surface, and sets the device's picture controls. It takes no part in the recording, which films the
/// screen. Called on the thread of forms and logic; failures are std::runtime_error.
class VideoCapX : public CameraConnection {
  public:
    /// Whether a device is open. Becomes false by itself when the device is unplugged.
    bool connected() const override = 0;
    /// Opens or closes the device that the device index names. Opening fails when there is no such device,
    /// when another program holds it, and when it does not answer in time; one that answers later is open
    /// then, with the preview that was asked for meanwhile. Closing never fails.
    virtual void setConnected(bool connected) = 0;
    /// Whether the live picture is shown, for this connection. Without one nothing happens.
    virtual void setPreview(bool running) = 0;

    /// Looks for devices anew.
    virtual int deviceCount() = 0;
    /// @p index from 0, of the devices that deviceCount() found last.
    virtual std::string deviceName(int index) = 0;
    /// Takes effect at the next connect.
    virtual void setDeviceIndex(int index) = 0;
    /// Which of its inputs a device with several of them films, from 0. Takes effect at the next connect.
    virtual void setVideoInput(std::int32_t index) = 0;
    /// Which of its television standards an analogue device uses, from 0. Takes effect at the next connect.
    virtual void setVideoStandard(std::int16_t index) = 0;

    /// None when the device lacks the control, or there is no device.
    virtual std::optional<VideoControlRange> videoControlRange(int index) = 0;
    /// Sets the control @p index. A negated index asks for the automatic mode of that control; there is no
    /// negated 0, so that of control 0 can't be asked for.
    virtual void setVideoControlValue(int index, int value) = 0;
    /// The device's own settings dialog, modal.
    virtual void showSettings() = 0;
};

} // namespace quillora::stage
