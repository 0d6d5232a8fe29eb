#pragma once

#include <initializer_list>
#include <string_view>

namespace quillora::session {

enum class BarState { collapsed, expanded };

/// The bars of the task pane `ebDemo`, as those see them that open and close one.
class TaskPaneBars {
  public:
    virtual ~TaskPaneBars() = default;
    /// Throws std::out_of_range for a bar that the present form of the pane lacks.
    virtual void setBarState(std::string_view key, BarState state) = 0;
};

/// Bars in the order in which they get their state. Those that the pane lacks are skipped: most commands know
/// the long form's bars only, and have to work in the short form too.
void setBarStates(TaskPaneBars& bars, BarState state, std::initializer_list<std::string_view> keys);

} // namespace quillora::session
