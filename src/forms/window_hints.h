#pragma once

#include <QPoint>

#include <cstdint>
#include <optional>

class QWindow;

namespace quillora::forms {

enum class Stacking { ordinary, above };
enum class MinimizeBox { absent, present };
enum class Move { locked, allowed };

/// What the window manager is asked for about a window, and what the screen knows of it. Size, place, focus
/// and visibility of the window stay as they are through all of it. Where there is no window manager, nothing
/// happens.
class WindowHints {
  public:
    virtual ~WindowHints() = default;

    virtual void setStacking(QWindow& window, Stacking stacking) = 0;
    /// What the presenter may do to the window by the window manager's means.
    virtual void setFunctions(QWindow& window, MinimizeBox minimizeBox, Move move) = 0;
    /// Where the inside of the window begins, in physical pixels of the screen; nothing where that is not
    /// known.
    virtual std::optional<QPoint> originOnScreen(QWindow& window) = 0;

    /// The window that stands on the screen for this one: the window manager's frame around it, or the window
    /// itself; 0 where that is not known.
    virtual std::uint32_t frameOf(QWindow& window) = 0;
    /// Whether a window, known by what frameOf() gave, is to be seen on the screen at this moment.
    virtual bool isViewable(std::uint32_t frame) = 0;
};

} // namespace quillora::forms
