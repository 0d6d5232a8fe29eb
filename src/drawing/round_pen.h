#pragma once

#include <cstdint>
#include <vector>

namespace quillora::drawing {

/// What a round pen covers when it stands on one pixel, row by row.
class RoundPen {
  public:
    /// Counted from that pixel; left and right are both in the row.
    struct Row {
        std::int64_t down;
        std::int64_t left;
        std::int64_t right;
    };

    explicit RoundPen(int width);

    const std::vector<Row>& rows() const { return m_rows; }

  private:
    std::vector<Row> m_rows;
};

} // namespace quillora::drawing
