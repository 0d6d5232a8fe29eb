#pragma once

#include "stage/camera_connection.h"

namespace quillora::tests {

class FakeCameraConnection : public stage::CameraConnection {
  public:
    bool isConnected = false;

    bool connected() const override { return isConnected; }
};

} // namespace quillora::tests
