#include "drawing/clocked_random_numbers.h"

#include <chrono>

namespace quillora::drawing {

void ClockedRandomNumbers::reseedFromClock()
{
    const auto now = std::chrono::steady_clock::now().time_since_epoch();
    m_generator.seed(static_cast<std::minstd_rand::result_type>(now.count()));
}

float ClockedRandomNumbers::next()
{
    return std::generate_canonical<float, std::numeric_limits<float>::digits>(m_generator);
}

} // namespace quillora::drawing
