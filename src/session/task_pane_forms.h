#pragma once

#include <string>
#include <string_view>

namespace quillora::session {

/// The task pane as the commands see it: which of its two forms it has, and what stands in it.
class TaskPaneForms {
  public:
    virtual ~TaskPaneForms() = default;
    /// Builds the long form, with a bar for each media. What was open or closed before is forgotten.
    virtual void AddExpBar() = 0;
    /// Builds the short form, likewise.
    virtual void AddExpBarLess() = 0;
    /// Throws std::out_of_range for an item that the present form lacks.
    virtual std::string itemCaption(std::string_view bar, std::string_view item) const = 0;
    virtual void refresh() = 0;
};

} // namespace quillora::session
