#pragma once

#include "capture/pixel_rectangle.h"
#include "capture/platform/x11/x11_connection.h"

#include <cstddef>
#include <cstdint>
#include <memory>

namespace quillora::capture {

/// Memory that the X server can write a picture into, where it can do such a thing; own memory elsewhere.
///
/// It is handed over as a file without a name, not as a System V segment: nothing is left behind however this
/// process ends, and the limits and name spaces of System V don't matter.
class PictureBuffer {
  public:
    /// Throws std::system_error when there is no memory.
    PictureBuffer(const X11Connection& connection, std::size_t bytes);
    ~PictureBuffer();
    PictureBuffer(const PictureBuffer&) = delete;
    PictureBuffer& operator=(const PictureBuffer&) = delete;

    std::uint8_t* data() const { return m_data; }
    std::size_t size() const { return m_size; }
    /// The server's name of the memory; 0 where it isn't shared.
    std::uint32_t segment() const { return m_segment; }

  private:
    void share(int file);

    const X11Connection& m_connection;
    std::size_t m_size = 0;
    std::uint8_t* m_data = nullptr;
    std::uint32_t m_segment = 0;
};

/// Reads parts of the screen into memory, in the layout of the screen, rows padded as PixelLayout says.
class ScreenReader {
  public:
    explicit ScreenReader(const X11Connection& connection);

    /// Makes @p buffer anew unless a picture of @p width by @p height pixels fits into it: a region that
    /// follows the mouse is another one in each picture.
    void makeRoom(std::unique_ptr<PictureBuffer>& buffer, int width, int height) const;

    enum class Outcome {
        done,
        /// The part reaches beyond the screen, which has become smaller.
        offScreen,
    };

    /// Reads @p part, which isn't empty and lies on the screen, to the beginning of @p buffer. Throws
    /// std::runtime_error when the server doesn't give it.
    Outcome read(const PixelRectangle& part, PictureBuffer& buffer);

  private:
    bool readShared(const PixelRectangle& part, PictureBuffer& buffer,
                    XcbPointer<xcb_generic_error_t>& error);
    bool readCopied(const PixelRectangle& part, PictureBuffer& buffer,
                    XcbPointer<xcb_generic_error_t>& error);

    const X11Connection& m_connection;
    /// Off once the server has refused memory that it was handed.
    bool m_shared = false;
};

} // namespace quillora::capture
