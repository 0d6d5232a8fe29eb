#pragma once

#include <cstdint>
#include <vector>

namespace quillora::drawing {

/// What a round pen covers when it stands on one pixel, row by row.
class RoundPen {
  public:
    explicit RoundPen(int width);

    /// Calls @p visit(y, left, right), both in it, for all that the pen covers while it moves along row @p y
    /// from
    /// @p left to @p right.
    template <typename Visit>
    void sweep(std::int64_t y, std::int64_t left, std::int64_t right, Visit visit) const
    {
        for (const Row& row : m_rows)
            visit(y + row.down, left + row.left, right + row.right);
    }

  private:
    struct Row {
        std::int64_t down;
        std::int64_t left;
        std::int64_t right;
    };
    std::vector<Row> m_rows;
};

} // namespace quillora::drawing
