#include "frame_picture.h"

#include <algorithm>

namespace {

int channel(int sum) { return std::clamp(sum >> 16, 0, 255); }

/// By ITU-R BT.601 with luma from 16 to 235, which is what the recorder's codec holds; factors are 16.16
/// fixed point.
QRgb colourOf(int y, int u, int v)
{
    constexpr int kLuma = 76309;
    constexpr int kRedV = 104597;
    constexpr int kGreenU = 25675;
    constexpr int kGreenV = 53279;
    constexpr int kBlueU = 132201;
    constexpr int kHalf = 1 << 15;
    const int luma = (y - 16) * kLuma + kHalf;
    return qRgb(channel(luma + kRedV * (v - 128)), channel(luma - kGreenU * (u - 128) - kGreenV * (v - 128)),
                channel(luma + kBlueU * (u - 128)));
}

QImage fromPlanes(const QVideoFrame& frame)
{
    QImage picture(frame.size(), QImage::Format_RGB32);
    for (int y = 0; y < picture.height(); ++y) {
        const uchar* luma = frame.bits(0) + qsizetype(y) * frame.bytesPerLine(0);
        const uchar* u = frame.bits(1) + qsizetype(y / 2) * frame.bytesPerLine(1);
        const uchar* v = frame.bits(2) + qsizetype(y / 2) * frame.bytesPerLine(2);
        auto* row = reinterpret_cast<QRgb*>(picture.scanLine(y));
        for (int x = 0; x < picture.width(); ++x)
            row[x] = colourOf(luma[x], u[x / 2], v[x / 2]);
    }
    return picture;
}

} // namespace

QImage pictureOf(QVideoFrame frame)
{
    if (frame.pixelFormat() != QVideoFrameFormat::Format_YUV420P)
        return frame.toImage();
    if (!frame.map(QVideoFrame::ReadOnly))
        return {};
    QImage picture = fromPlanes(frame);
    frame.unmap();
    return picture;
}
