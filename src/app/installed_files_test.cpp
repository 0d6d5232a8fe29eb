#include "app/installed_files.h"

#include "tests/support/file_contents.h"
#include "tests/support/temporary_folder.h"

#include <gtest/gtest.h>

using namespace quillora::app;
using namespace quillora::tests;
namespace fs = std::filesystem;

namespace {

class InstalledFilesTest : public testing::Test {
  protected:
    void put(const fs::path& file)
    {
        fs::create_directories((prefix.path() / file).parent_path());
        writeFile(prefix.path() / file, "");
    }

    InstalledFiles find() const { return findInstalledFiles(prefix.path() / "bin"); }

    TemporaryFolder prefix;
};

} // namespace

TEST_F(InstalledFilesTest, AreFoundInAnInstallation)
{
    put("bin/quillora");
    put("share/quillora/PPT.png");
    put("libexec/quillora/quillora-deck-converter");
    put("libexec/quillora/quillora-browser");
    put("libexec/quillora/quillora-review-player");
    EXPECT_EQ(find().reviewPlayer, prefix.path() / "libexec/quillora/quillora-review-player");
    EXPECT_EQ(find().assets, prefix.path() / "share/quillora");
    EXPECT_EQ(find().deckConverter, prefix.path() / "libexec/quillora/quillora-deck-converter");
    EXPECT_EQ(find().browser, prefix.path() / "libexec/quillora/quillora-browser");
}

TEST_F(InstalledFilesTest, BesideTheProgramComeFirst)
{
    put("bin/PPT.png");
    put("bin/quillora-deck-converter");
    put("share/quillora/PPT.png");
    EXPECT_EQ(find().assets, prefix.path() / "bin");
    EXPECT_EQ(find().deckConverter, prefix.path() / "bin/quillora-deck-converter");
    EXPECT_EQ(find().browser, prefix.path() / "bin/quillora-browser");
}

TEST_F(InstalledFilesTest, AreExpectedBesideTheProgramWhereTheyAreMissing)
{
    EXPECT_EQ(find().assets, prefix.path() / "bin");
    EXPECT_EQ(find().deckConverter, prefix.path() / "bin/quillora-deck-converter");
    EXPECT_EQ(find().browser, prefix.path() / "bin/quillora-browser");
}
