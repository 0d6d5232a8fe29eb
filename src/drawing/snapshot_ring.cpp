#include "drawing/snapshot_ring.h"

#include "base/text_number.h"

namespace quillora::drawing {
namespace {

std::int16_t nextPosition(std::int16_t position)
{
    return static_cast<std::int16_t>((position + 1) % SnapshotRing::kPositions);
}

Snapshot snapshot(const RasterImage& image, int widthTwips, int heightTwips)
{
    return {image, base::decimalText(heightTwips * 100000LL + widthTwips)};
}

} // namespace

void SnapshotRing::take(const RasterImage& image, int widthTwips, int heightTwips)
{
    bufferNewest = nextPosition(bufferNewest);
    picBuffer.at(bufferNewest) = snapshot(image, widthTwips, heightTwips);
    bufferLast = bufferNewest;
    if (bufferOldest == bufferLast)
        bufferOldest = nextPosition(bufferOldest);
    bufferDirty = true;
}

void SnapshotRing::ResetBuffer(const RasterImage& image, int widthTwips, int heightTwips)
{
    bufferNewest = bufferLast = bufferOldest = 0;
    picBuffer.fill({});
    picBuffer.front() = snapshot(image, widthTwips, heightTwips);
}

void SnapshotRing::restart()
{
    bufferNewest = bufferLast = bufferOldest = 0;
    bufferDirty = false;
}

} // namespace quillora::drawing
