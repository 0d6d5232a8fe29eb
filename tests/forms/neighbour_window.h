#pragma once

#include <cstdint>
#include <thread>

struct xcb_connection_t;

namespace quillora::tests {

/// Another program's window below all others, over the whole screen, of one colour. It draws what was
/// uncovered as programs do: some time after it has been told, on a thread and a connection of its own.
class NeighbourWindow {
  public:
    /// @p colour is 0xRRGGBB.
    NeighbourWindow(std::uint32_t colour, int drawsAfterMilliseconds);
    ~NeighbourWindow();
    NeighbourWindow(const NeighbourWindow&) = delete;
    NeighbourWindow& operator=(const NeighbourWindow&) = delete;

  private:
    void draw();

    int m_drawsAfterMilliseconds;
    xcb_connection_t* m_display;
    std::uint32_t m_window = 0;
    std::uint32_t m_context = 0;
    std::jthread m_thread{};
};

} // namespace quillora::tests
