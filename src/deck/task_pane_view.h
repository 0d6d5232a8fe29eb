#pragma once

#include "session/task_pane_bars.h"

#include <string_view>

namespace quillora::deck {

/// What shows the task pane. Keys are those with which a bar was added, in their exact spelling.
class TaskPaneView {
  public:
    virtual ~TaskPaneView() = default;
    /// Empties the pane; the controls that it held live on unseen.
    virtual void clear() = 0;
    virtual void addBar(std::string_view bar, std::string_view caption) = 0;
    virtual void setBarState(std::string_view bar, session::BarState state) = 0;
    virtual void addLink(std::string_view bar, std::string_view item, std::string_view caption) = 0;
    /// Gives the bar the control of this name. Throws std::out_of_range when there is none.
    virtual void addControl(std::string_view bar, std::string_view item, std::string_view control) = 0;
    /// Puts what was built on the screen.
    virtual void refresh() = 0;
};

} // namespace quillora::deck
