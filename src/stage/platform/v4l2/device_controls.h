#pragma once

#include "stage/camera_settings.h"
#include "stage/platform/v4l2/device.h"

#include <vector>

namespace quillora::stage::v4l2 {

/// The settings that @p device has at present, in the driver's order. Kinds that no dialog could show (texts,
/// bit fields, numbers past 32 bits) are left out.
std::vector<CameraSetting> readSettings(const Device& device);

/// Throws std::system_error when the device refuses.
void writeSetting(const Device& device, std::uint32_t id, int value);

} // namespace quillora::stage::v4l2
