#pragma once

#include <QImage>
#include <QPoint>
#include <QRect>

#include <cstdint>
#include <string>
#include <vector>

struct xcb_connection_t;

namespace quillora::tests {

/// Looks at the display from outside the program, over a connection of its own, as a recorder or a window
/// manager would.
class X11Probe {
  public:
    X11Probe();
    ~X11Probe();
    X11Probe(const X11Probe&) = delete;
    X11Probe& operator=(const X11Probe&) = delete;

    bool hasWindowManager() const;
    /// Names of the atoms that a property of a window lists, such as those of _NET_WM_STATE.
    std::vector<std::string> atomList(std::uint32_t window, const char* property) const;
    /// The functions that a window asks for in _MOTIF_WM_HINTS; 0 when it asks for none in particular.
    std::uint32_t motifFunctions(std::uint32_t window) const;
    /// The inside of a window on the screen.
    QRect geometry(std::uint32_t window) const;
    bool isMapped(std::uint32_t window) const;
    std::uint32_t focusedWindow() const;
    /// The pixels that the screen shows.
    QImage grab(const QRect& area) const;

    /// From now on counts how often @p window is taken off the screen.
    void watchUnmapping(std::uint32_t window);
    int unmappings();

  private:
    std::uint32_t atom(const char* name) const;

    xcb_connection_t* m_display;
    std::uint32_t m_root = 0;
};

} // namespace quillora::tests
