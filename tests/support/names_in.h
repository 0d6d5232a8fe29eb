#pragma once

#include <algorithm>
#include <filesystem>
#include <string>
#include <vector>

namespace quillora::tests {

/// Names of what lies in @p folder, sorted.
inline std::vector<std::string> namesIn(const std::filesystem::path& folder)
{
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(folder))
        names.push_back(entry.path().filename().string());
    std::ranges::sort(names);
    return names;
}

} // namespace quillora::tests
