#include "deck/task_pane.h"

#include "base/skip_failures.h"

#include <algorithm>
#include <cctype>
#include <span>
#include <stdexcept>

namespace quillora::deck {

using base::skipFailures;
using session::BarState;

namespace {

struct Item {
    std::string_view key;
    std::string_view caption;
    /// The control that the item holds; empty for a link.
    std::string_view control = "";
};

struct Bar {
    std::string_view key;
    std::string_view caption;
    BarState state;
    std::span<const Item> items;
};

constexpr Item kCamera[] = {{"CAM1", " ", "PicDraw1"}};
constexpr Item kSlides[] = {{"Notes", " ", "Pic_notes"}};
constexpr Item kText[] = {{"Text", " ", "textBoard_pic"}};
constexpr Item kDrawing[] = {{"DRAWING", " ", "Picture2"}};
constexpr Item kWeb[] = {{"WEB", " ", "PicWeb"}};
constexpr Item kVideo[] = {{"YouTube", " ", "yt_pic"}};
constexpr Item kHelp[] = {{"about", "About"}, {"onlinesupport", "Online Help"}};

constexpr Bar kShortForm[] = {
    {"camera", "Camera", BarState::expanded, kCamera},
    {"powerpoint", "Slides", BarState::expanded, kSlides},
    {"help", "About", BarState::expanded, kHelp},
};

constexpr Bar kLongForm[] = {
    {"camera", "Camera", BarState::expanded, kCamera}, {"powerpoint", "Slides", BarState::collapsed, kSlides},
    {"text", "Write", BarState::collapsed, kText},     {"Draw", "Draw", BarState::collapsed, kDrawing},
    {"web", "Web", BarState::collapsed, kWeb},         {"youtube", "YouTube", BarState::collapsed, kVideo},
    {"help", "About", BarState::collapsed, kHelp},
};

bool sameIgnoringCase(std::string_view one, std::string_view other)
{
    const auto lower = [](char c) { return std::tolower(static_cast<unsigned char>(c)); };
    return std::ranges::equal(one, other, {}, lower, lower);
}

} // namespace

void TaskPane::setBarState(std::string_view key, BarState state)
{
    const auto bar = std::ranges::find_if(
        m_bars, [&](const std::string& present) { return sameIgnoringCase(present, key); });
    if (bar == m_bars.end())
        throw std::out_of_range("the task pane has no bar " + std::string(key));
    m_view.setBarState(*bar, state);
}

void TaskPane::AddExpBar() { build(std::span(kLongForm)); }

void TaskPane::AddExpBarLess() { build(std::span(kShortForm)); }

template <typename Bars>
void TaskPane::build(const Bars& bars)
{
    m_bars.clear();
    m_captions.clear();
    m_view.clear();
    for (const Bar& bar : bars) {
        m_bars.emplace_back(bar.key);
        m_view.addBar(bar.key, bar.caption);
        m_view.setBarState(bar.key, bar.state);
        for (const Item& item : bar.items) {
            m_captions[{std::string(bar.key), std::string(item.key)}] = item.caption;
            if (item.control.empty())
                m_view.addLink(bar.key, item.key, item.caption);
            else
                skipFailures([&] { m_view.addControl(bar.key, item.key, item.control); });
        }
    }
    m_view.refresh();
}

std::string TaskPane::itemCaption(std::string_view bar, std::string_view item) const
{
    return m_captions.at({std::string(bar), std::string(item)});
}

} // namespace quillora::deck
