#include "session/text_file.h"

#include "tests/support/file_contents.h"
#include "tests/support/file_size_limit.h"
#include "tests/support/temporary_folder.h"

#include <gtest/gtest.h>

using namespace quillora;

TEST(PrintToFile, EndsTheTextWithALineEnd)
{
    const tests::TemporaryFolder folder;
    session::printToFile(folder.path() / "a.txt", "one line");
    EXPECT_EQ(tests::readFile(folder.path() / "a.txt"), "one line\r\n");
}

TEST(PrintToFile, ReplacesWhatWasThere)
{
    const tests::TemporaryFolder folder;
    tests::writeFile(folder.path() / "a.txt", "something longer than the new text");
    session::printToFile(folder.path() / "a.txt", "new");
    EXPECT_EQ(tests::readFile(folder.path() / "a.txt"), "new\r\n");
}

TEST(PrintToFile, ReportsAFolderThatIsNotThere)
{
    const tests::TemporaryFolder folder;
    EXPECT_THROW(session::printToFile(folder.path() / "missing" / "a.txt", "x"), std::runtime_error);
}

TEST(PrintToFile, ReportsAFullDisk)
{
    const tests::TemporaryFolder folder;
    const tests::FileSizeLimit limit(4096);
    EXPECT_THROW(session::printToFile(folder.path() / "a.txt", std::string(10000, 'x')), std::runtime_error);
}
