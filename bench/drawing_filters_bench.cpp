// The filters on the whole canvas, 747 by 420, beside OpenCV doing the same sums on a picture of the same
// layout: filter2D for the neighbourhoods, transform for the grey. OpenCV is given the easier half of the
// work: it saturates at 0 where our filters drop the sign. One thread each; after the measures the ratios are
// printed.

#include "drawing/image_filters.h"

#include <benchmark/benchmark.h>

#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wdeprecated-enum-enum-conversion"
#include <opencv2/imgproc.hpp>
#pragma GCC diagnostic pop

#include <cstdio>
#include <functional>
#include <map>
#include <random>
#include <string>

namespace {

using namespace quillora::drawing;

constexpr int kWidth = 747;
constexpr int kHeight = 420;

struct NoChance : RandomNumbers {
    void reseedFromClock() override {}
    float next() override { return 0; }
};

RasterImage canvas()
{
    RasterImage picture(kWidth, kHeight);
    std::minstd_rand generator(1);
    for (int y = 0; y < kHeight; ++y) {
        for (auto& pixel : picture.row(y))
            pixel = static_cast<Colour>(generator()) & kColourBits;
    }
    return picture;
}

void ours(benchmark::State& state, Filter filter)
{
    NoChance chance;
    ImageFilters filters(chance);
    auto picture = canvas();
    for (auto _ : state) {
        filters.applyUnseen(static_cast<int>(filter), picture, kWholeSurface);
        benchmark::ClobberMemory();
    }
}

cv::Mat kernel(std::initializer_list<float> values)
{
    return cv::Mat(3, 3, CV_32F, const_cast<float*>(values.begin())).clone();
}

/// @p channels 4 is the canvas's own layout, 3 the one that OpenCV is at home in.
cv::Mat peerCanvas(int channels)
{
    auto picture = canvas();
    const cv::Mat whole(kHeight, kWidth, CV_8UC4, picture.data());
    cv::Mat three;
    cv::cvtColor(whole, three, cv::COLOR_RGBA2RGB);
    return channels == 4 ? whole.clone() : three;
}

void peerNeighbourhood(benchmark::State& state, const cv::Mat& sums, double added, int channels)
{
    const auto before = peerCanvas(channels);
    cv::Mat after;
    for (auto _ : state) {
        cv::filter2D(before, after, -1, sums, {-1, -1}, added);
        benchmark::ClobberMemory();
    }
}

void peerGrey(benchmark::State& state, int channels)
{
    const auto before = peerCanvas(channels);
    cv::Mat weights(channels, channels, CV_32F, cv::Scalar(0));
    weights(cv::Rect(0, 0, 3, 3)).setTo(0.32F);
    cv::Mat after;
    for (auto _ : state) {
        cv::transform(before, after, weights);
        benchmark::ClobberMemory();
    }
}

/// Prints as usual, and keeps the best time of each benchmark for the ratios.
class BestTimes : public benchmark::ConsoleReporter {
  public:
    std::map<std::string, double> best;

    void ReportRuns(const std::vector<Run>& runs) override
    {
        ConsoleReporter::ReportRuns(runs);
        for (const auto& run : runs) {
            if (run.run_type != Run::RT_Iteration)
                continue;
            const auto [place, isNew] =
                best.try_emplace(run.run_name.function_name, run.GetAdjustedCPUTime());
            if (!isNew)
                place->second = std::min(place->second, run.GetAdjustedCPUTime());
        }
    }
};

void enter(const std::string& name, Filter filter, const std::function<void(benchmark::State&, int)>& peer)
{
    const auto measured = [](benchmark::internal::Benchmark* benchmark) {
        benchmark->Unit(benchmark::kMicrosecond)->Repetitions(7)->MinTime(0.2);
    };
    measured(benchmark::RegisterBenchmark((name + " ours").c_str(), ours, filter));
    for (const int channels : {4, 3}) {
        measured(benchmark::RegisterBenchmark((name + " peer" + std::to_string(channels)).c_str(), peer,
                                              channels));
    }
}

} // namespace

int main(int count, char** arguments)
{
    cv::setNumThreads(1);
    const auto blur = kernel({.1F, .1F, .1F, .1F, .1F, .1F, .1F, .1F, .1F});
    const auto sharpen = kernel({-.5F, 0, 0, 0, 1.5F, 0, 0, 0, 0});
    const auto emboss = kernel({0, 0, 0, 0, 1, 0, 0, 0, -1});
    enter("soft blur", Filter::softBlur,
          [&](auto& state, int channels) { peerNeighbourhood(state, blur, 0, channels); });
    enter("sharpen", Filter::sharpen,
          [&](auto& state, int channels) { peerNeighbourhood(state, sharpen, 0, channels); });
    enter("emboss", Filter::emboss,
          [&](auto& state, int channels) { peerNeighbourhood(state, emboss, -128, channels); });
    enter("grey", Filter::grey, [](auto& state, int channels) { peerGrey(state, channels); });
    benchmark::Initialize(&count, arguments);
    BestTimes times;
    benchmark::RunSpecifiedBenchmarks(&times);
    std::printf("\nOurs to OpenCV, best of seven (4 channels as the canvas, 3 as OpenCV likes it)\n");
    for (const std::string name : {"soft blur", "sharpen", "emboss", "grey"}) {
        std::printf("%-10s %5.2f %5.2f\n", name.c_str(),
                    times.best[name + " ours"] / times.best[name + " peer4"],
                    times.best[name + " ours"] / times.best[name + " peer3"]);
    }
    return 0;
}
