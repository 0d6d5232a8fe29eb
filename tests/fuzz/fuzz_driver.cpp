// A driver for fuzz targets that needs nothing of the compiler: random inputs until the time is over, each
// from a seed that is printed before it runs.

#include <chrono>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <random>
#include <string_view>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace {

void runSeed(unsigned seed)
{
    std::printf("seed %u\n", seed);
    std::fflush(stdout);
    std::mt19937 generator(seed);
    std::vector<std::uint8_t> input(std::uniform_int_distribution<std::size_t>(0, 4000)(generator));
    for (auto& byte : input)
        byte = static_cast<std::uint8_t>(generator());
    LLVMFuzzerTestOneInput(input.data(), input.size());
}

} // namespace

int main(int count, char** arguments)
{
    if (count == 3 && std::string_view(arguments[1]) == "--seed") {
        runSeed(static_cast<unsigned>(std::strtoul(arguments[2], nullptr, 10)));
        return 0;
    }
    if ((count != 3 && count != 4) || std::string_view(arguments[1]) != "--seconds") {
        std::fputs("usage: --seconds NUMBER [FIRST SEED], the first being 1 where none is given,\n"
                   "       or --seed NUMBER to run one input again\n",
                   stderr);
        return 2;
    }
    const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(std::atoi(arguments[2]));
    auto seed = count == 4 ? static_cast<unsigned>(std::strtoul(arguments[3], nullptr, 10)) : 1U;
    for (; std::chrono::steady_clock::now() < end; ++seed)
        runSeed(seed);
    return 0;
}
