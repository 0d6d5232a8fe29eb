#pragma once

#include "tests/support/file_contents.h"

#include <cstdlib>
#include <filesystem>
#include <string>

namespace quillora::tests {

/// A desktop of stand-ins, as long as it lives: each program writes down what it was started with.
class StandInDesktop {
  public:
    /// @p folder is where it keeps its programs.
    explicit StandInDesktop(const std::filesystem::path& folder)
        : m_programs(folder / "bin"), m_calls(folder / "calls"), m_path(std::getenv("PATH"))
    {
        std::filesystem::create_directories(m_programs);
        ::setenv("PATH", (m_programs.string() + ":/usr/bin:/bin").c_str(), 1);
    }
    ~StandInDesktop() { ::setenv("PATH", m_path.c_str(), 1); }
    StandInDesktop(const StandInDesktop&) = delete;
    StandInDesktop& operator=(const StandInDesktop&) = delete;

    void standIn(const std::string& name)
    {
        writeFile(m_programs / name,
                  "#!/bin/sh\nprintf '" + name + ":%s\\n' \"$@\" >>'" + m_calls.string() + "'\n");
        std::filesystem::permissions(m_programs / name, std::filesystem::perms::owner_all);
    }

    const std::filesystem::path& programs() const { return m_programs; }
    /// A line for each start: the program and what it was given.
    std::string heard() const { return readFile(m_calls); }

  private:
    std::filesystem::path m_programs;
    std::filesystem::path m_calls;
    std::string m_path;
};

} // namespace quillora::tests
