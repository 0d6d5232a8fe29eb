#pragma once

#include "base/dialogs.h"
#include "tests/support/call_log.h"

#include <vector>

namespace quillora::tests {

/// Keeps every box that was shown, and gives the same answer to each.
class FakeMessageBoxes : public base::MessageBoxes {
  public:
    explicit FakeMessageBoxes(CallLog& callLog) : log(callLog) {}

    CallLog& log;
    std::vector<base::MessageBox> shown{};
    base::BoxAnswer answer = base::BoxAnswer::ok;

    base::BoxAnswer show(const base::MessageBox& box) override
    {
        log.add("box " + box.text);
        shown.push_back(box);
        return answer;
    }
};

} // namespace quillora::tests
