#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <limits>

namespace quillora::tests {

/// Reads a fuzzer's bytes as choices and numbers; past their end all are 0. Numbers are mostly small and at
/// times those that break arithmetic.
class FuzzInput {
  public:
    FuzzInput(const std::uint8_t* data, std::size_t size) : m_data(data), m_size(size) {}

    bool atEnd() const { return m_at >= m_size; }

    std::uint8_t byte() { return atEnd() ? 0 : m_data[m_at++]; }
    /// From 0 up to @p count, not in it.
    int choice(int count) { return byte() % count; }

    int number()
    {
        constexpr int kSpecial[] = {std::numeric_limits<int>::min(),
                                    std::numeric_limits<int>::max(),
                                    std::numeric_limits<int>::min() + 1,
                                    1 << 29,
                                    -(1 << 29),
                                    (1 << 29) + 1,
                                    32767,
                                    32768,
                                    -32769,
                                    -1,
                                    0,
                                    1};
        const int kind = choice(16);
        if (kind == 0)
            return kSpecial[choice(static_cast<int>(std::size(kSpecial)))];
        if (kind == 1)
            return anyNumber();
        return byte() * 4 - 256 + byte() % 4;
    }

    double real()
    {
        constexpr double kSpecial[] = {std::numeric_limits<double>::quiet_NaN(),
                                       std::numeric_limits<double>::infinity(),
                                       -std::numeric_limits<double>::infinity(),
                                       std::numeric_limits<double>::max(),
                                       std::numeric_limits<double>::denorm_min(),
                                       -0.0,
                                       0.5};
        const int kind = choice(16);
        if (kind == 0)
            return kSpecial[choice(static_cast<int>(std::size(kSpecial)))];
        return number() + byte() / 256.0;
    }

  private:
    int anyNumber()
    {
        std::uint32_t bits = 0;
        for (int count = 0; count < 4; ++count)
            bits = bits << 8 | byte();
        int number = 0;
        std::memcpy(&number, &bits, sizeof number);
        return number;
    }

    const std::uint8_t* m_data;
    std::size_t m_size;
    std::size_t m_at = 0;
};

} // namespace quillora::tests
