#pragma once

#include "base/dialogs.h"
#include "tests/support/call_log.h"

#include <deque>
#include <filesystem>
#include <optional>
#include <stdexcept>
#include <vector>

namespace quillora::tests {

/// Gives the answers that a test put into it, one a showing. Showing it more often than it has answers for is
/// a failure of the dialog: a loop that never ends shows up as that.
class FakeCommonDialog : public base::CommonDialog {
  public:
    struct Choice {
        std::filesystem::path file{};
        int filterIndex = 1;
    };
    /// How it stood when it was shown.
    struct Shown {
        std::string FileName{};
        std::string DialogTitle{};
        std::string Filter{};
        std::string DefaultExt{};
        int FilterIndex = 0;
    };

    explicit FakeCommonDialog(CallLog& callLog) : log(callLog) {}

    CallLog& log;
    std::vector<Shown> shown{};

    void willChoose(const std::filesystem::path& file, int filterIndex = 1)
    {
        m_answers.push_back(Choice{.file = file, .filterIndex = filterIndex});
    }
    void willBeCancelled() { m_answers.push_back(std::nullopt); }

    void ShowOpen() override { show("ShowOpen"); }
    void ShowSave() override { show("ShowSave"); }

  private:
    void show(const std::string& kind)
    {
        log.add(kind);
        shown.push_back({FileName, DialogTitle, Filter, DefaultExt, FilterIndex});
        if (m_answers.empty())
            throw std::runtime_error("the dialog was shown once too often");
        const auto answer = m_answers.front();
        m_answers.pop_front();
        if (!answer)
            return;
        FileName = answer->file.string();
        FileTitle = answer->file.filename().string();
        FilterIndex = answer->filterIndex;
    }

    std::deque<std::optional<Choice>> m_answers{};
};

} // namespace quillora::tests
