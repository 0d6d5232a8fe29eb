#pragma once

#include "stage/patience.h"

#include <memory>
#include <string>
#include <vector>

namespace quillora::stage::v4l2 {

/// A device node that films.
struct CameraNode {
    std::string path;
    /// As the driver names the device.
    std::string name;
};

/// Finds the cameras of the machine. Each node is asked on a thread of its own what it is: one that hangs is
/// left out, and does not hide the others. It isn't asked again before it has answered.
class CameraNodes {
  public:
    /// In the order of their numbers. A camera has further nodes, for data that are no pictures, and they are
    /// left out, as are devices that can't be opened.
    std::vector<CameraNode> find(const Patience& patience);

  private:
    struct Inquiry;
    static std::shared_ptr<Inquiry> ask(const std::string& path);

    std::vector<std::shared_ptr<Inquiry>> m_unanswered;
};

} // namespace quillora::stage::v4l2
