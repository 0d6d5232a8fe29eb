#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace quillora::stage {

/// One thing that can be set at a camera, as its driver describes it.
struct CameraSetting {
    enum class Kind { number, onOff, menu, button };
    struct MenuEntry {
        int value = 0;
        std::string name{};
        bool operator==(const MenuEntry&) const = default;
    };

    std::uint32_t id = 0;
    std::string name{};
    Kind kind = Kind::number;
    int minimum = 0;
    int maximum = 0;
    int step = 1;
    int standard = 0;
    int value = 0;
    /// Of a menu only.
    std::vector<MenuEntry> entries{};
    /// False while another setting, such as an automatic mode, has this one in its hands.
    bool changeable = true;

    bool operator==(const CameraSetting&) const = default;
};

/// The settings of the camera that is connected. Called on the thread of forms and logic; never waits for the
/// device.
class CameraSettings {
  public:
    virtual ~CameraSettings() = default;

    /// As they were read last; none once the camera is gone.
    virtual std::vector<CameraSetting> settings() const = 0;
    /// Has them read again; they change when the device has answered.
    virtual void refreshSettings() = 0;
    /// Has the device set this one. What the device refuses is left as it was.
    virtual void changeSetting(std::uint32_t id, int value) = 0;
};

/// The dialog in which a presenter sets them.
class CameraSettingsDialog {
  public:
    virtual ~CameraSettingsDialog() = default;
    /// Returns when it is closed. @p camera may vanish meanwhile.
    virtual void showModal(CameraSettings& camera) = 0;
};

} // namespace quillora::stage
