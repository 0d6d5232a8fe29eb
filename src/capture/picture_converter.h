#pragma once

#include "capture/image_scaler.h"
#include "capture/picture_pool.h"

#include <cstdint>
#include <memory>
#include <optional>

namespace quillora::capture {

/// Keeps a video picture that shows what a picture of the screen shows, scaled to the video's size where the
/// two differ. Works on the changed part alone. A picture that was handed out is never written to again: the
/// next change goes into another one. Not thread-safe.
class PictureConverter {
  public:
    PictureConverter(int width, int height);

    /// Takes up the part @p changed of @p image (the whole of it when its size is new). Returns how many
    /// pixels of the video picture may have changed.
    std::int64_t update(const ScreenImageView& image, const PixelRectangle& changed);
    /// The picture, black before the first update.
    SharedPicture handOut();

  private:
    VideoPicture& writable(const PixelRectangle& changed);

    const int m_width;
    const int m_height;
    PicturePool m_pool;
    std::shared_ptr<VideoPicture> m_picture;
    bool m_handedOut = false;
    std::optional<ImageScaler> m_scaler{};
    ScreenImage m_scaled{};
};

} // namespace quillora::capture
