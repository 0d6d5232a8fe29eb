#include "capture/random_string.h"

#include <random>
#include <string_view>

namespace quillora::capture {

namespace {

constexpr std::string_view kAlphabet = "abcdefghijklmnopqrstuvwxyz"
                                       "ABCDEFGHIJKLMNOPQRSTUVWXYZ"
                                       "0123456789";

} // namespace

std::string RandomNames::RandomString(std::int16_t length)
{
    const auto seconds = m_clock.now().time_since_epoch().count();
    std::seed_seq seed{static_cast<std::uint32_t>(seconds), static_cast<std::uint32_t>(seconds >> 32),
                       ++m_calls};
    std::mt19937 generator(seed);

    std::string text;
    for (std::int16_t place = 0; place < length; ++place) {
        const double r = double(generator()) / (double(std::mt19937::max()) + 1);
        text += kAlphabet[static_cast<std::size_t>(r * double(kAlphabet.size()))];
    }
    return text;
}

} // namespace quillora::capture
