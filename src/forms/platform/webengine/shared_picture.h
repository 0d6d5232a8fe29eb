#pragma once

#include <cstddef>

namespace quillora::forms::webengine {

/// Memory that the recorder and a browser's process both see, by way of a descriptor that the one makes and
/// the other inherits. Its size is fixed for good, so that neither can take it from under the other.
class SharedPicture {
  public:
    /// Makes it. Throws std::system_error.
    SharedPicture();
    /// Opens one that was inherited. Throws std::system_error.
    explicit SharedPicture(int descriptor);
    ~SharedPicture();
    SharedPicture(const SharedPicture&) = delete;
    SharedPicture& operator=(const SharedPicture&) = delete;

    int descriptor() const { return m_descriptor; }
    /// kPictureCapacity bytes.
    unsigned char* bytes() const { return m_bytes; }

  private:
    void map();

    int m_descriptor;
    unsigned char* m_bytes = nullptr;
};

} // namespace quillora::forms::webengine
