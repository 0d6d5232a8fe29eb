#include "session/file_lookup.h"

#include "tests/support/file_contents.h"
#include "tests/support/temporary_folder.h"

#include <gtest/gtest.h>

namespace fs = std::filesystem;

namespace quillora::session {
namespace {

class FileLookup : public testing::Test {
  protected:
    tests::TemporaryFolder folder{};

    void make(const std::string& name) { tests::writeFile(folder.path() / name, "x"); }
    std::vector<std::string> namesEndingIn(std::string_view ending)
    {
        std::vector<std::string> names;
        for (const auto& file : filesEndingIn(folder.path(), ending))
            names.push_back(file.filename().string());
        return names;
    }
};

using Names = std::vector<std::string>;

TEST_F(FileLookup, FindsAFileWhateverItsCase)
{
    make("sLide1.PnG");
    EXPECT_EQ(findIgnoringCase(folder.path() / "Slide1.png"), folder.path() / "sLide1.PnG");
}

TEST_F(FileLookup, PrefersTheSpellingThatWasAskedFor)
{
    make("SLIDE1.PNG");
    make("Slide1.png");
    EXPECT_EQ(findIgnoringCase(folder.path() / "Slide1.png"), folder.path() / "Slide1.png");
}

TEST_F(FileLookup, OfAMissingFile_GivesThePathItself)
{
    make("Slide11.png");
    EXPECT_EQ(findIgnoringCase(folder.path() / "Slide1.png"), folder.path() / "Slide1.png");
    EXPECT_EQ(findIgnoringCase("/no/such/folder/a.png"), "/no/such/folder/a.png");
}

TEST_F(FileLookup, ByEnding_IgnoresCaseAndSortsByName)
{
    for (const auto* name : {"slide2.jpg", "Slide10.JPG", "slide1.jpg", "slide1.png", "jpg", "a.jpg.part"})
        make(name);
    EXPECT_EQ(namesEndingIn(".jpg"), (Names{"slide1.jpg", "Slide10.JPG", "slide2.jpg"}));
}

TEST_F(FileLookup, ByEnding_LeavesFoldersOut)
{
    fs::create_directory(folder.path() / "pictures.jpg");
    EXPECT_EQ(namesEndingIn(".jpg"), Names{});
}

TEST_F(FileLookup, ByEnding_OfAFolderThatIsNotThere_FindsNothing)
{
    EXPECT_TRUE(filesEndingIn(folder.path() / "missing", ".jpg").empty());
}

} // namespace
} // namespace quillora::session
