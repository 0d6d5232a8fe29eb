#pragma once

#include <set>
#include <stdexcept>
#include <string>

namespace quillora::tests {

/// The calls of a fake that are to fail, by name. Empty: everything works.
struct FailingCalls {
    std::set<std::string> names{};

    void check(const std::string& name) const
    {
        if (names.contains(name))
            throw std::runtime_error(name + " was told to fail");
    }
};

} // namespace quillora::tests
