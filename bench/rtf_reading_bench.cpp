// How fast RTF is read: a large document as an office program writes it, read here and by unrtf in turn.
//
//     rtf_reading_bench [FILE.rtf [TIMES]]
//
// Without a file, one is made: 4 MB of paragraphs with fonts, sizes, colours, bullets and text in several
// languages. unrtf makes plain text of it ("unrtf --text"); its start is in its time, some milliseconds.
// Prints the median of each and the ratio; the ratio is left out where unrtf isn't installed.

#include "bench/statistics.h"
#include "panels/rtf_reader.h"
#include "panels/rtf_writer.h"
#include "tests/support/child_process.h"
#include "tests/support/temporary_folder.h"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

using namespace quillora;
using bench::median;
using Clock = std::chrono::steady_clock;

namespace {

constexpr int kDefaultTimes = 5;
constexpr std::size_t kMadeSize = 4'000'000;

std::string madeDocument()
{
    panels::RichText text{.paragraphs = {}};
    const panels::CharacterFormat plain{.size = {240}};
    const panels::CharacterFormat strong{
        .font = "Arial", .size = {280}, .colour = base::rgb(0, 0, 192), .bold = true};
    for (int n = 0; n < 40; ++n) {
        panels::Paragraph paragraph;
        paragraph.bullet = n % 4 == 1;
        paragraph.alignment = n % 7 == 0 ? panels::Alignment::centre : panels::Alignment::left;
        paragraph.runs = {
            {"Heat and work are two ways in which energy is handed on: ", plain},
            {"neither is a thing that a body holds", strong},
            {". Ciepło i praca, теплота и работа, \u71B1\u3068\u4ED5\u4E8B \u2013 and so on.", plain}};
        paragraph.mark = plain;
        text.paragraphs.push_back(paragraph);
    }
    const std::string small = panels::writeRtf(text);
    const auto begin = small.find("\\pard");
    const std::string body = small.substr(begin, small.rfind('}') - begin);
    std::string document = small.substr(0, begin);
    while (document.size() < kMadeSize)
        document += body;
    return document + "}";
}

std::string contentsOf(const char* file)
{
    std::ifstream stream(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
}

double millisecondsOf(auto&& work)
{
    const auto start = Clock::now();
    work();
    return std::chrono::duration<double, std::milli>(Clock::now() - start).count();
}

} // namespace

int main(int argc, char** argv)
{
    const std::string document = argc > 1 ? contentsOf(argv[1]) : madeDocument();
    const int times = argc > 2 ? std::atoi(argv[2]) : kDefaultTimes;
    const tests::TemporaryFolder folder;
    const std::string file = (folder.path() / "document.rtf").string();
    std::ofstream(file, std::ios::binary) << document;
    const std::string peer =
        "unrtf --text '" + file + "' > '" + (folder.path() / "out.txt").string() + "' 2> /dev/null";
    const bool hasPeer = tests::runToEnd({"sh", "-c", "command -v unrtf > /dev/null"}) == 0;

    std::vector<double> ours;
    std::vector<double> theirs;
    std::size_t paragraphs = 0;
    for (int n = 0; n < times; ++n) {
        ours.push_back(millisecondsOf([&] {
            paragraphs =
                panels::readRtf(contentsOf(file.c_str()), {.characters = SIZE_MAX}).paragraphs.size();
        }));
        if (hasPeer)
            theirs.push_back(millisecondsOf([&] { tests::runToEnd({"sh", "-c", peer}); }));
    }
    const double megabytes = double(document.size()) / 1e6;
    std::printf("%.1f MB, %zu paragraphs\n", megabytes, paragraphs);
    std::printf("ours   %.0f ms, %.0f MB/s\n", median(ours), megabytes / median(ours) * 1000);
    if (hasPeer) {
        std::printf("unrtf  %.0f ms, %.0f MB/s\n", median(theirs), megabytes / median(theirs) * 1000);
        std::printf("ratio  %.3f\n", median(ours) / median(theirs));
    }
    return 0;
}
