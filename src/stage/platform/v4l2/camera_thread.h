#pragma once

#include "stage/camera_mailbox.h"
#include "stage/newest_frame.h"

#include <cstdint>
#include <memory>
#include <string>

namespace quillora::stage::v4l2 {

struct CameraTarget {
    std::string node;
    std::int32_t videoInput = 0;
    std::int16_t videoStandard = 0;
};

/// Begins to open a device, on a thread of its own: the only one that speaks with it, since any call of a
/// driver may block for as long as it likes. It takes pictures for @p frames and obeys orders until the
/// device fails or is abandoned, and then closes it; a thread that hangs does so if it ever comes back.
/// Whoever asked has to abandon the device while @p frames lives. Throws std::system_error when there can be
/// no further thread.
std::shared_ptr<CameraMailbox> startCameraThread(CameraTarget target, NewestFrame& frames);

} // namespace quillora::stage::v4l2
