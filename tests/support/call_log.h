#pragma once

#include <algorithm>
#include <string>
#include <vector>

namespace quillora::tests {

/// What the fakes were asked to do, in one order for all of them: the order across ports is what most of the
/// logic promises.
struct CallLog {
    std::vector<std::string> calls{};

    void add(std::string call) { calls.push_back(std::move(call)); }
    void clear() { calls.clear(); }

    auto count(const std::string& call) const { return std::ranges::count(calls, call); }

    /// The calls that begin with @p prefix, such as "engine.".
    std::vector<std::string> startingWith(const std::string& prefix) const
    {
        std::vector<std::string> found;
        std::ranges::copy_if(calls, std::back_inserter(found),
                             [&](const std::string& call) { return call.starts_with(prefix); });
        return found;
    }
};

} // namespace quillora::tests
