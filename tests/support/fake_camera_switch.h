#pragma once

#include "session/camera_switch.h"
#include "tests/support/call_log.h"

namespace quillora::tests {

/// A camera that can be closed.
class FakeCameraSwitch : public session::CameraSwitch {
  public:
    explicit FakeCameraSwitch(CallLog& callLog) : log(callLog) {}

    CallLog& log;

    void CloseCam() override { log.add("CloseCam"); }
};

} // namespace quillora::tests
