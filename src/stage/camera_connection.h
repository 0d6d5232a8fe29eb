#pragma once

namespace quillora::stage {

/// The camera, as far as the layouts ask for it: a picture stands in for one that isn't connected.
class CameraConnection {
  public:
    virtual ~CameraConnection() = default;
    virtual bool connected() const = 0;
};

} // namespace quillora::stage
