#include "stage/platform/v4l2/device_controls.h"

#include <algorithm>
#include <linux/videodev2.h>
#include <optional>

namespace quillora::stage::v4l2 {
namespace {

std::optional<CameraSetting::Kind> kindOf(const v4l2_queryctrl& control)
{
    switch (control.type) {
    case V4L2_CTRL_TYPE_INTEGER:
        return CameraSetting::Kind::number;
    case V4L2_CTRL_TYPE_BOOLEAN:
        return CameraSetting::Kind::onOff;
    case V4L2_CTRL_TYPE_MENU:
    case V4L2_CTRL_TYPE_INTEGER_MENU:
        return CameraSetting::Kind::menu;
    case V4L2_CTRL_TYPE_BUTTON:
        return CameraSetting::Kind::button;
    default:
        return std::nullopt;
    }
}

template <std::size_t size>
std::string textOf(const __u8 (&bytes)[size])
{
    const auto* text = reinterpret_cast<const char*>(bytes);
    return std::string(text, std::find(text, text + size, '\0'));
}

std::vector<CameraSetting::MenuEntry> entriesOf(const Device& device, const v4l2_queryctrl& control)
{
    std::vector<CameraSetting::MenuEntry> entries;
    for (int value = control.minimum; value <= control.maximum; ++value) {
        v4l2_querymenu entry{};
        entry.id = control.id;
        entry.index = std::uint32_t(value);
        // A menu has gaps: what this device can't do.
        if (device.tryRequest(VIDIOC_QUERYMENU, &entry))
            entries.push_back({value, control.type == V4L2_CTRL_TYPE_INTEGER_MENU
                                          ? std::to_string(entry.value)
                                          : textOf(entry.name)});
    }
    return entries;
}

std::optional<CameraSetting> describe(const Device& device, const v4l2_queryctrl& control)
{
    const auto kind = kindOf(control);
    if (!kind || (control.flags & V4L2_CTRL_FLAG_DISABLED) ||
        (control.flags & V4L2_CTRL_FLAG_WRITE_ONLY && *kind != CameraSetting::Kind::button))
        return std::nullopt;
    CameraSetting setting{.id = control.id,
                          .name = textOf(control.name),
                          .kind = *kind,
                          .minimum = control.minimum,
                          .maximum = control.maximum,
                          .step = std::max(1, control.step),
                          .standard = control.default_value};
    constexpr auto kHeld = V4L2_CTRL_FLAG_GRABBED | V4L2_CTRL_FLAG_READ_ONLY | V4L2_CTRL_FLAG_INACTIVE;
    setting.changeable = !(control.flags & kHeld);
    if (*kind == CameraSetting::Kind::menu)
        setting.entries = entriesOf(device, control);
    if (*kind != CameraSetting::Kind::button) {
        v4l2_control value{};
        value.id = control.id;
        if (!device.tryRequest(VIDIOC_G_CTRL, &value))
            return std::nullopt;
        setting.value = value.value;
    }
    return setting;
}

} // namespace

std::vector<CameraSetting> readSettings(const Device& device)
{
    std::vector<CameraSetting> settings;
    v4l2_queryctrl control{};
    control.id = V4L2_CTRL_FLAG_NEXT_CTRL;
    std::uint32_t last = 0;
    // A driver that names no higher one than before would keep the loop going for ever.
    while (device.tryRequest(VIDIOC_QUERYCTRL, &control) && control.id > last) {
        last = control.id;
        if (auto setting = describe(device, control))
            settings.push_back(std::move(*setting));
        control = {};
        control.id = last | V4L2_CTRL_FLAG_NEXT_CTRL;
    }
    return settings;
}

void writeSetting(const Device& device, std::uint32_t id, int value)
{
    v4l2_control control{};
    control.id = id;
    control.value = value;
    device.request(VIDIOC_S_CTRL, &control, "the device refuses a setting");
}

} // namespace quillora::stage::v4l2
