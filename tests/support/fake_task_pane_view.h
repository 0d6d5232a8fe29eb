#pragma once

#include "deck/task_pane_view.h"
#include "tests/support/call_log.h"

#include <algorithm>
#include <stdexcept>
#include <string>
#include <vector>

namespace quillora::tests {

/// A task pane in memory.
class FakeTaskPaneView : public deck::TaskPaneView {
  public:
    struct Item {
        std::string key;
        std::string caption;
        /// Empty for a link.
        std::string control;
        bool operator==(const Item&) const = default;
    };
    struct Bar {
        std::string key;
        std::string caption;
        bool expanded = false;
        std::vector<Item> items{};
        bool operator==(const Bar&) const = default;
    };

    std::vector<Bar> bars{};
    int refreshed = 0;
    /// Where each state that a bar is given is written down, if anywhere: "web expanded".
    CallLog* log = nullptr;

    /// Keys of the bars that are open.
    std::vector<std::string> expanded() const
    {
        std::vector<std::string> keys;
        for (const Bar& bar : bars)
            if (bar.expanded)
                keys.push_back(bar.key);
        return keys;
    }

    void clear() override { bars.clear(); }
    void addBar(std::string_view bar, std::string_view caption) override
    {
        bars.push_back({std::string(bar), std::string(caption)});
    }
    void setBarState(std::string_view bar, session::BarState state) override
    {
        at(bar).expanded = state == session::BarState::expanded;
        if (log)
            log->add(std::string(bar) + (at(bar).expanded ? " expanded" : " collapsed"));
    }
    void addLink(std::string_view bar, std::string_view item, std::string_view caption) override
    {
        at(bar).items.push_back({std::string(item), std::string(caption), ""});
    }
    void addControl(std::string_view bar, std::string_view item, std::string_view control) override
    {
        at(bar).items.push_back({std::string(item), " ", std::string(control)});
    }
    void refresh() override { ++refreshed; }

  private:
    Bar& at(std::string_view key)
    {
        const auto bar = std::ranges::find(bars, key, &Bar::key);
        if (bar == bars.end())
            throw std::out_of_range("no bar " + std::string(key));
        return *bar;
    }
};

} // namespace quillora::tests
