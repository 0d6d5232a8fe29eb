#pragma once

#include "tests/support/temporary_folder.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

namespace quillora::tests {

/// Tells the fake cameras of this process what to be, and reads what they were told. See fake_camera.cpp.
class FakeCameraScript {
  public:
    FakeCameraScript() { ::setenv("QUILLORA_FAKE_CAMERAS", m_folder.path().c_str(), 1); }
    ~FakeCameraScript() { ::unsetenv("QUILLORA_FAKE_CAMERAS"); }

    void set(const std::string& device, const std::string& state) const
    {
        // At once, since the device may read at any moment.
        const auto unfinished = m_folder.path() / (device + ".new");
        std::ofstream(unfinished) << state;
        std::filesystem::rename(unfinished, m_folder.path() / device);
    }

    /// What a device was asked to do, in order: "open", "close", "start", "stop", or "Brightness=12".
    std::vector<std::string> log(const std::string& device) const
    {
        std::ifstream file(m_folder.path() / (device + ".log"));
        std::vector<std::string> lines;
        for (std::string line; std::getline(file, line);)
            lines.push_back(line);
        return lines;
    }

  private:
    TemporaryFolder m_folder{TemporaryFolder::Name::plain};
};

} // namespace quillora::tests
