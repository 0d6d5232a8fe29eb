#pragma once

#include <string>

namespace quillora::panels {

/// Opens a document or an address with the application that the presenter's desktop has for it, and does not
/// wait for it. Whether it worked is not told: there is nothing that the program would do about it.
class DefaultApplication {
  public:
    virtual ~DefaultApplication() = default;
    /// @p target: a full path of a file, or an address with its scheme; UTF-8. A file that is not there is
    /// nothing that is opened, and no message.
    virtual void open(const std::string& target) = 0;
};

} // namespace quillora::panels
