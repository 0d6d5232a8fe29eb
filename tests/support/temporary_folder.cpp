#include "tests/support/temporary_folder.h"

#include <cerrno>
#include <cstdlib>
#include <string>
#include <system_error>

namespace quillora::tests {

TemporaryFolder::TemporaryFolder(Name name)
{
    const std::string stem = name == Name::awkward ? "quillora t\xC3\xA4st XXXXXX" : "quillora-test-XXXXXX";
    std::string pattern = (std::filesystem::temp_directory_path() / stem).string();
    if (!mkdtemp(pattern.data()))
        throw std::system_error(errno, std::generic_category(), "mkdtemp " + pattern);
    m_path = pattern;
}

TemporaryFolder::~TemporaryFolder()
{
    std::error_code ignored;
    std::filesystem::remove_all(m_path, ignored);
}

} // namespace quillora::tests
