#pragma once

#include "session/file_copier.h"
#include "tests/support/failing_calls.h"

namespace quillora::tests {

class FakeFileCopier : public session::FileCopier {
  public:
    /// "copyOver".
    FailingCalls failing{};
    std::filesystem::path lastFrom{};

    void copyOver(const std::filesystem::path& from, const std::filesystem::path& to) override
    {
        lastFrom = from;
        failing.check("copyOver");
        std::filesystem::copy_file(from, to, std::filesystem::copy_options::overwrite_existing);
    }
};

} // namespace quillora::tests
