#pragma once

#include "deck/task_pane_view.h"
#include "session/task_pane_bars.h"
#include "session/task_pane_forms.h"

#include <map>
#include <string>
#include <utility>
#include <vector>

namespace quillora::deck {

/// The tree of the task pane `ebDemo`: bars with the panels and links in them, in a short form and a long
/// one. A rebuild forgets which bars the presenter or a command had opened; the next media command tells it
/// again.
class TaskPane : public session::TaskPaneBars, public session::TaskPaneForms {
  public:
    /// @p view must outlive this object.
    explicit TaskPane(TaskPaneView& view) : m_view(view) {}

    /// A bar is found whatever the case of its key: the long form spells one "Draw", and all who write its
    /// state spell it "draw".
    void setBarState(std::string_view key, session::BarState state) override;

    void AddExpBar() override;
    void AddExpBarLess() override;
    std::string itemCaption(std::string_view bar, std::string_view item) const override;
    void refresh() override { m_view.refresh(); }

  private:
    template <typename Bars>
    void build(const Bars& bars);

    TaskPaneView& m_view;
    /// As they stand in the pane now.
    std::vector<std::string> m_bars{};
    std::map<std::pair<std::string, std::string>, std::string> m_captions{};
};

} // namespace quillora::deck
