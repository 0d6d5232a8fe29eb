#include "session/task_pane_bars.h"

#include "base/skip_failures.h"

namespace quillora::session {

void setBarStates(TaskPaneBars& bars, BarState state, std::initializer_list<std::string_view> keys)
{
    for (const auto key : keys)
        base::skipFailures([&] { bars.setBarState(key, state); });
}

} // namespace quillora::session
