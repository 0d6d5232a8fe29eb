#pragma once

#include "tests/support/child_process.h"
#include "tests/support/file_contents.h"
#include "tests/support/temporary_folder.h"

#include <clocale>
#include <cstdlib>
#include <string>

namespace quillora::tests {

/// A locale of the test's own whose numbers have a comma where others have a point, in force for as long as
/// it lives. It is made of nothing but that, since a machine may have no language installed; that takes the
/// system's description of UTF-8, so that a machine may also lack what it is made with.
class CommaLocale {
  public:
    CommaLocale()
    {
        const auto description = m_folder.path() / "description";
        writeFile(description, "LC_NUMERIC\n"
                               "decimal_point \",\"\n"
                               "thousands_sep \"\"\n"
                               "grouping -1\n"
                               "END LC_NUMERIC\n");
        // The status tells of the warnings, too: that the rest of a locale is missing.
        runToEnd({"localedef", "-c", "-f", "UTF-8", "-i", description.string(),
                  (m_folder.path() / "comma").string()});
        ::setenv("LOCPATH", m_folder.path().c_str(), 1);
        m_isSet = std::setlocale(LC_NUMERIC, "comma") != nullptr;
    }
    ~CommaLocale()
    {
        ::unsetenv("LOCPATH");
        std::setlocale(LC_NUMERIC, m_before.c_str());
    }
    CommaLocale(const CommaLocale&) = delete;
    CommaLocale& operator=(const CommaLocale&) = delete;

    bool isSet() const { return m_isSet; }

  private:
    TemporaryFolder m_folder{TemporaryFolder::Name::plain};
    std::string m_before = std::setlocale(LC_NUMERIC, nullptr);
    bool m_isSet = false;
};

} // namespace quillora::tests
