#include "drawing/flood_fill.h"

#include <algorithm>
#include <vector>

namespace quillora::drawing {

namespace {

/// A fill by runs: each run that is filled is remembered with the side on which its neighbours have still to
/// be looked at. Of the run that it was reached from, only what overhangs is looked at again (after Heckbert,
/// "A seed fill algorithm", Graphics Gems, 1990).
class RunFill {
  public:
    RunFill(RasterImage& image, Colour surface, Colour ink) : m_image(image), m_surface(surface), m_ink(ink)
    {}

    base::PixelRectangle from(int x, int y)
    {
        const Run seed = fillRunAround(x, y);
        m_pending.push_back({y, seed, -1});
        m_pending.push_back({y, seed, +1});
        while (!m_pending.empty()) {
            const Task task = m_pending.back();
            m_pending.pop_back();
            followTo(task);
        }
        return {m_left, m_top, m_right - m_left + 1, m_bottom - m_top + 1};
    }

  private:
    /// Columns, both in it.
    struct Run {
        int left;
        int right;
    };
    /// The run of row y has to be followed into the next row in this direction.
    struct Task {
        int y;
        Run run;
        int direction;
    };

    Run fillRunAround(int x, int y)
    {
        Colour* const row = m_image.row(y).data();
        int left = x;
        while (left > 0 && row[left - 1] == m_surface)
            --left;
        std::fill(row + left, row + x, m_ink);
        const int end = fillRight(row, x);
        note(y, left, end - 1);
        return {left, end - 1};
    }

    /// Fills from @p x on; gives the first column that is no longer of the surface.
    int fillRight(Colour* row, int x) const
    {
        constexpr int kBlock = 16;
        const int width = m_image.width();
        while (x + kBlock <= width) {
            Colour different = 0;
            for (int index = 0; index < kBlock; ++index)
                different |= row[x + index] ^ m_surface;
            if (different != 0)
                break;
            std::fill_n(row + x, kBlock, m_ink);
            x += kBlock;
        }
        while (x < width && row[x] == m_surface)
            row[x++] = m_ink;
        return x;
    }

    /// Fills what the run leads to, and goes on in the same direction for as long as there is just one way.
    void followTo(Task task)
    {
        for (;;) {
            const int y = task.y + task.direction;
            if (y < 0 || y >= m_image.height())
                return;
            Colour* const row = m_image.row(y).data();
            bool found = false;
            Run last{};
            for (int x = task.run.left; x <= task.run.right; ++x) {
                if (row[x] != m_surface)
                    continue;
                if (found)
                    m_pending.push_back({y, last, task.direction});
                last = x == task.run.left ? fillRunAround(x, y) : fillRunFrom(row, x, y);
                found = true;
                if (last.left < task.run.left - 1)
                    m_pending.push_back({y, {last.left, task.run.left - 2}, -task.direction});
                if (last.right > task.run.right + 1)
                    m_pending.push_back({y, {task.run.right + 2, last.right}, -task.direction});
                x = last.right + 1;
            }
            if (!found)
                return;
            task = {y, last, task.direction};
        }
    }

    Run fillRunFrom(Colour* row, int x, int y)
    {
        const int end = fillRight(row, x);
        note(y, x, end - 1);
        return {x, end - 1};
    }

    void note(int y, int left, int right)
    {
        m_left = std::min(m_left, left);
        m_right = std::max(m_right, right);
        m_top = std::min(m_top, y);
        m_bottom = std::max(m_bottom, y);
    }

    RasterImage& m_image;
    Colour m_surface;
    Colour m_ink;
    std::vector<Task> m_pending;
    int m_left = RasterImage::kLongestSide;
    int m_top = RasterImage::kLongestSide;
    int m_right = -1;
    int m_bottom = -1;
};

} // namespace

base::PixelRectangle floodFill(RasterImage& image, int x, int y, Colour surface, Colour ink)
{
    ink &= kColourBits;
    if (!image.contains(x, y) || image.at(x, y) != surface || surface == ink)
        return {};
    return RunFill(image, surface, ink).from(x, y);
}

} // namespace quillora::drawing
