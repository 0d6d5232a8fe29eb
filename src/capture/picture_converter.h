#pragma once

#include "capture/image_scaler.h"
#include "capture/video_picture.h"

#include <cstdint>
#include <optional>

namespace quillora::capture {

/// Keeps a video picture that shows what a picture of the screen shows, scaled to the video's size where the
/// two differ. Works on the changed part alone. Not thread-safe.
class PictureConverter {
  public:
    PictureConverter(int width, int height);

    /// Takes up the part @p changed of @p image (the whole of it when its size is new). Returns how many
    /// pixels of the video picture may have changed.
    std::int64_t update(const ScreenImage& image, const PixelRectangle& changed);
    const VideoPicture& picture() const { return m_picture; }

  private:
    VideoPicture m_picture;
    std::optional<ImageScaler> m_scaler{};
    ScreenImage m_scaled{};
};

} // namespace quillora::capture
