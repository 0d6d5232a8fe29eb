#include "capture/picture_pool.h"

#include <mutex>
#include <utility>
#include <vector>

namespace quillora::capture {

namespace {

/// Somewhat more than wait for a file at the most.
constexpr std::size_t kMostSpare = 16;

} // namespace

struct PicturePool::Shelf {
    Shelf(int pictureWidth, int pictureHeight) : width(pictureWidth), height(pictureHeight)
    {
        pictures.reserve(kMostSpare);
    }

    const int width;
    const int height;
    std::mutex mutex{};
    std::vector<std::unique_ptr<VideoPicture>> pictures{};
};

PicturePool::PicturePool(int width, int height) : m_shelf(std::make_shared<Shelf>(width, height)) {}

std::shared_ptr<VideoPicture> PicturePool::take()
{
    std::unique_ptr<VideoPicture> picture;
    {
        const std::lock_guard lock(m_shelf->mutex);
        if (!m_shelf->pictures.empty()) {
            picture = std::move(m_shelf->pictures.back());
            m_shelf->pictures.pop_back();
        }
    }
    if (!picture)
        picture = std::make_unique<VideoPicture>(m_shelf->width, m_shelf->height);
    return {picture.release(), [shelf = m_shelf](VideoPicture* used) {
                std::unique_ptr<VideoPicture> back(used);
                const std::lock_guard lock(shelf->mutex);
                if (shelf->pictures.size() < kMostSpare)
                    shelf->pictures.push_back(std::move(back));
            }};
}

} // namespace quillora::capture
