#pragma once

#include "tests/support/child_process.h"
#include "tests/support/file_contents.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <sstream>
#include <string>
#include <vector>

namespace quillora::tests {

/// Of a kind that this program records: three seconds of red, then three of blue, with a tone.
inline void makeVideo(const std::filesystem::path& path)
{
    ASSERT_EQ(runToEnd({"ffmpeg", "-v", "error", "-y", "-f", "lavfi", "-i",
                        "color=red:s=746x420:r=24:d=3[a];color=blue:s=746x420:r=24:d=3[b];[a][b]concat", "-f",
                        "lavfi", "-i", "sine=440:d=6", "-c:v", "wmv2", "-c:a", "wmav2", "-f", "asf",
                        path.string()}),
              0);
}

/// The players of the review that this process has started and not yet buried.
inline std::vector<int> reviewPlayers()
{
    std::vector<int> found;
    for (const auto& task : std::filesystem::directory_iterator("/proc/self/task")) {
        std::istringstream list(readFile(task.path() / "children"));
        for (int child = 0; list >> child;) {
            const auto command = readFile("/proc/" + std::to_string(child) + "/cmdline");
            if (command.find("quillora-review-player") != std::string::npos)
                found.push_back(child);
        }
    }
    return found;
}

} // namespace quillora::tests
