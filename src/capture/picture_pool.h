#pragma once

#include "capture/video_picture.h"

#include <memory>

namespace quillora::capture {

/// A picture that is passed on from thread to thread, and not written to any more.
using SharedPicture = std::shared_ptr<const VideoPicture>;

/// Pictures of one size, whose memory is used again once nobody holds them. Thread-safe; pictures may outlive
/// the pool.
class PicturePool {
  public:
    PicturePool(int width, int height);

    /// A picture that nobody else holds. What it shows is left open.
    std::shared_ptr<VideoPicture> take();

  private:
    struct Shelf;
    std::shared_ptr<Shelf> m_shelf;
};

} // namespace quillora::capture
