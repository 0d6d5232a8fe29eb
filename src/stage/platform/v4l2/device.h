#pragma once

#include <string>

namespace quillora::stage::v4l2 {

/// An open device node. Each operation takes as long as the driver lets it, which can be for ever: no object
/// of this class is to be touched on the thread of forms and logic.
class Device {
  public:
    /// Throws std::system_error when the node can't be opened.
    explicit Device(const std::string& node);
    ~Device();
    Device(const Device&) = delete;
    Device& operator=(const Device&) = delete;

    int descriptor() const { return m_descriptor; }

    /// Sends a request of the V4L2 interface. Throws std::system_error with @p what when the device refuses.
    void request(unsigned long code, void* argument, const char* what) const;
    /// The same for what a device may well lack. False when it refuses.
    bool tryRequest(unsigned long code, void* argument) const;

  private:
    int m_descriptor;
};

} // namespace quillora::stage::v4l2
