#pragma once

namespace quillora::session {

/// The camera, as far as the life of the main form goes.
class CameraSwitch {
  public:
    virtual ~CameraSwitch() = default;
    /// Disconnects the camera. Never waits for the device.
    virtual void CloseCam() = 0;
};

} // namespace quillora::session
