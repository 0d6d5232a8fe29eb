// The raster surface against what others do with the same pixels: flood fills against OpenCV, lines, ellipses
// and polygons against QPainter. One thread, on a canvas of the size of the stage. Each pair of benchmarks
// does the same work on the same numbers; after them the ratios are printed, ours by the peer's.

#include "drawing/surface.h"

#include <benchmark/benchmark.h>
#include <opencv2/imgproc.hpp>

#include <QImage>
#include <QPainter>

#include <algorithm>
#include <cstdio>
#include <map>
#include <random>
#include <string>
#include <vector>

using namespace quillora;
using namespace quillora::drawing;

namespace {

constexpr int kWidth = 747;
constexpr int kHeight = 420;
/// Of each of the runs that the median is taken of.
constexpr double kSeconds = 0.05;
constexpr int kRepetitions = 9;
constexpr Colour kPaper = rgb(255, 255, 255);
constexpr Colour kInk = rgb(20, 40, 200);

std::vector<base::PixelPoint> randomPoints(int count)
{
    std::mt19937 random(7);
    std::vector<base::PixelPoint> points;
    for (int index = 0; index < count; ++index)
        points.push_back({std::uniform_int_distribution(0, kWidth - 1)(random),
                          std::uniform_int_distribution(0, kHeight - 1)(random)});
    return points;
}

// Flood fill. The canvas is filled to and fro between two colours, so that nothing has to be restored between
// two fills; walls keep a third.

enum class Canvas { empty, comb };

/// Walls one pixel wide in every second column, open at the bottom: as many runs as pixels.
bool isWall(Canvas canvas, int x, int y) { return canvas == Canvas::comb && x % 2 == 1 && y < kHeight - 1; }

void fillOurs(benchmark::State& state, Canvas canvas)
{
    Surface surface(kWidth, kHeight, kPaper);
    for (int y = 0; y < kHeight; ++y)
        for (int x = 0; x < kWidth; ++x)
            if (isWall(canvas, x, y))
                surface.SetPixel(x, y, 0);
    surface.FillStyle = FillPattern::solid;
    for (auto _ : state) {
        const Colour there = surface.GetPixel(0, 0);
        surface.FillColor = there == kPaper ? kInk : kPaper;
        surface.ExtFloodFill(0, 0, there);
        benchmark::DoNotOptimize(surface.Image().data());
    }
}

void fillPeer(benchmark::State& state, Canvas canvas)
{
    // 32 bits a pixel in one channel is the peer's fastest form that holds a colour.
    cv::setNumThreads(1);
    cv::Mat image(kHeight, kWidth, CV_32SC1, cv::Scalar(kPaper));
    for (int y = 0; y < kHeight; ++y)
        for (int x = 0; x < kWidth; ++x)
            if (isWall(canvas, x, y))
                image.at<int>(y, x) = 0;
    for (auto _ : state) {
        const bool isPaper = image.at<int>(0, 0) == static_cast<int>(kPaper);
        cv::floodFill(image, cv::Point(0, 0), cv::Scalar(isPaper ? kInk : kPaper), nullptr, cv::Scalar(),
                      cv::Scalar(), 4 | cv::FLOODFILL_FIXED_RANGE);
        benchmark::DoNotOptimize(image.data);
    }
}

void fillPeerBytes(benchmark::State& state, Canvas canvas)
{
    cv::setNumThreads(1);
    cv::Mat image(kHeight, kWidth, CV_8UC3, cv::Scalar(255, 255, 255));
    for (int y = 0; y < kHeight; ++y)
        for (int x = 0; x < kWidth; ++x)
            if (isWall(canvas, x, y))
                image.at<cv::Vec3b>(y, x) = {0, 0, 0};
    for (auto _ : state) {
        const bool isPaper = image.at<cv::Vec3b>(0, 0)[0] == 255;
        cv::floodFill(image, cv::Point(0, 0), isPaper ? cv::Scalar(20, 40, 200) : cv::Scalar(255, 255, 255),
                      nullptr, cv::Scalar(), cv::Scalar(), 4);
        benchmark::DoNotOptimize(image.data);
    }
}

// Shapes.

QPen peerPen(int width)
{
    // At one pixel caps and joins make no difference to what is drawn, but round ones would cost the peer its
    // short cut.
    return width == 1 ? QPen(QColor(20, 40, 200), 1)
                      : QPen(QColor(20, 40, 200), width, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin);
}

QImage peerImage()
{
    QImage image(kWidth, kHeight, QImage::Format_RGB32);
    image.fill(Qt::white);
    return image;
}

void linesOurs(benchmark::State& state, int width)
{
    const auto points = randomPoints(2000);
    Surface surface(kWidth, kHeight, kPaper);
    surface.ForeColor = kInk;
    surface.DrawWidth = width;
    for (auto _ : state) {
        for (std::size_t index = 0; index < points.size(); index += 2)
            surface.Line(points[index].x, points[index].y, points[index + 1].x, points[index + 1].y);
        benchmark::DoNotOptimize(surface.Image().data());
    }
}

void linesPeer(benchmark::State& state, int width)
{
    const auto points = randomPoints(2000);
    QImage image = peerImage();
    QPainter painter(&image);
    painter.setPen(peerPen(width));
    for (auto _ : state) {
        for (std::size_t index = 0; index < points.size(); index += 2)
            painter.drawLine(points[index].x, points[index].y, points[index + 1].x, points[index + 1].y);
        benchmark::DoNotOptimize(image.constBits());
    }
}

void ellipsesOurs(benchmark::State& state, int width)
{
    const auto points = randomPoints(400);
    Surface surface(kWidth, kHeight, kPaper);
    surface.ForeColor = kInk;
    surface.DrawWidth = width;
    for (auto _ : state) {
        for (std::size_t index = 0; index < points.size(); index += 2) {
            const base::PixelPoint& one = points[index];
            const base::PixelPoint& other = points[index + 1];
            const double across = std::abs(other.x - one.x);
            const double down = std::abs(other.y - one.y);
            surface.Circle((one.x + other.x) / 2.0, (one.y + other.y) / 2.0, std::max(across, down) / 2,
                           down / std::max(across, 1.0));
        }
        benchmark::DoNotOptimize(surface.Image().data());
    }
}

void ellipsesPeer(benchmark::State& state, int width)
{
    const auto points = randomPoints(400);
    QImage image = peerImage();
    QPainter painter(&image);
    painter.setPen(peerPen(width));
    for (auto _ : state) {
        for (std::size_t index = 0; index < points.size(); index += 2)
            painter.drawEllipse(QRect(QPoint(points[index].x, points[index].y),
                                      QPoint(points[index + 1].x - 1, points[index + 1].y - 1))
                                    .normalized());
        benchmark::DoNotOptimize(image.constBits());
    }
}

constexpr std::size_t kCorners = 6;

void polygonsOurs(benchmark::State& state, int width)
{
    const auto points = randomPoints(200 * kCorners);
    Surface surface(kWidth, kHeight, kPaper);
    surface.ForeColor = kInk;
    surface.FillColor = rgb(255, 200, 0);
    surface.FillStyle = FillPattern::solid;
    surface.DrawWidth = width;
    for (auto _ : state) {
        for (std::size_t index = 0; index < points.size(); index += kCorners)
            surface.Polygon({&points[index], kCorners});
        benchmark::DoNotOptimize(surface.Image().data());
    }
}

void polygonsPeer(benchmark::State& state, int width)
{
    const auto points = randomPoints(200 * kCorners);
    std::vector<QPoint> corners;
    for (const base::PixelPoint& point : points)
        corners.emplace_back(point.x, point.y);
    QImage image = peerImage();
    QPainter painter(&image);
    painter.setPen(peerPen(width));
    painter.setBrush(QColor(255, 200, 0));
    for (auto _ : state) {
        for (std::size_t index = 0; index < corners.size(); index += kCorners)
            painter.drawPolygon(&corners[index], static_cast<int>(kCorners), Qt::OddEvenFill);
        benchmark::DoNotOptimize(image.constBits());
    }
}

/// Prints what the console reporter prints, and keeps the medians for the ratios.
class RatioReporter : public benchmark::ConsoleReporter {
  public:
    void ReportRuns(const std::vector<Run>& runs) override
    {
        ConsoleReporter::ReportRuns(runs);
        for (const Run& run : runs)
            if (run.aggregate_name == "median")
                m_medians[run.run_name.function_name] = run.GetAdjustedCPUTime();
    }

    void printRatios() const
    {
        std::printf("\n%-28s %12s\n", "work", "ours/peer");
        for (const auto& [name, ours] : m_medians) {
            if (!name.ends_with("/ours"))
                continue;
            const std::string work = name.substr(0, name.size() - 5);
            for (const char* peer : {"/qpainter", "/opencv_32s", "/opencv_8u3"})
                if (const auto found = m_medians.find(work + peer); found != m_medians.end())
                    std::printf("%-28s %12.3f\n", (work + " : " + (peer + 1)).c_str(), ours / found->second);
        }
    }

  private:
    std::map<std::string, double> m_medians;
};

void registerPair(const std::string& work, const std::string& peer, void (*ours)(benchmark::State&, int),
                  void (*theirs)(benchmark::State&, int), int width)
{
    for (const auto& [name, function] : {std::pair{"/ours", ours}, std::pair{peer.c_str(), theirs}})
        benchmark::RegisterBenchmark((work + name).c_str(), function, width)
            ->Unit(benchmark::kMicrosecond)
            ->MinTime(kSeconds)
            ->Repetitions(kRepetitions)
            ->ReportAggregatesOnly(true);
}

void registerFill(const std::string& work, Canvas canvas)
{
    const std::vector<std::pair<std::string, void (*)(benchmark::State&, Canvas)>> fills{
        {"/ours", fillOurs}, {"/opencv_32s", fillPeer}, {"/opencv_8u3", fillPeerBytes}};
    for (const auto& [name, function] : fills)
        benchmark::RegisterBenchmark((work + name).c_str(), function, canvas)
            ->Unit(benchmark::kMicrosecond)
            ->MinTime(kSeconds)
            ->Repetitions(kRepetitions)
            ->ReportAggregatesOnly(true);
}

} // namespace

int main(int argc, char** argv)
{
    registerFill("fill_empty", Canvas::empty);
    registerFill("fill_comb", Canvas::comb);
    for (const int width : {1, 5, 8})
        registerPair("lines_" + std::to_string(width), "/qpainter", linesOurs, linesPeer, width);
    for (const int width : {1, 5, 8})
        registerPair("ellipses_" + std::to_string(width), "/qpainter", ellipsesOurs, ellipsesPeer, width);
    for (const int width : {1, 5, 8})
        registerPair("polygons_" + std::to_string(width), "/qpainter", polygonsOurs, polygonsPeer, width);
    benchmark::Initialize(&argc, argv);
    RatioReporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    reporter.printRatios();
    return 0;
}
