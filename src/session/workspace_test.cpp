#include "session/workspace.h"

#include "tests/support/file_contents.h"
#include "tests/support/names_in.h"
#include "tests/support/temporary_folder.h"

#include <gtest/gtest.h>

namespace fs = std::filesystem;

namespace quillora::session {
namespace {

class WorkspaceTest : public testing::Test {
  protected:
    tests::TemporaryFolder disk{};
    UserFolders folders{.appData = disk.path() / "roaming", .localAppData = disk.path() / "local"};
    fs::path root = folders.appData / "Quillora";
    SessionFields fields{};
    Workspace workspace{fields, folders};

    void make(const std::string& name) { tests::writeFile(root / name, "x"); }
};

using Names = std::vector<std::string>;

TEST_F(WorkspaceTest, IsMadeWithItsPreviewFolderWhereNeitherExists)
{
    workspace.makeFolders();
    EXPECT_EQ(tests::namesIn(root), Names{"Preview"});
    EXPECT_EQ(workspace.preview(), root / "Preview");
    EXPECT_EQ(fields.workspacePath, root.string());
}

TEST_F(WorkspaceTest, WithoutItsPreviewFolder_GetsThatAlone)
{
    fs::create_directories(root);
    make("kept.txt");
    workspace.makeFolders();
    EXPECT_EQ(tests::namesIn(root), (Names{"Preview", "kept.txt"}));
}

TEST_F(WorkspaceTest, ThatCannotBeMade_IsSkipped)
{
    tests::writeFile(folders.appData, "a file");
    EXPECT_NO_THROW(workspace.makeFolders());
    EXPECT_NO_THROW(workspace.deleteAll());
    EXPECT_NO_THROW(workspace.deleteWMV());
    EXPECT_FALSE(fs::exists(root));
}

TEST_F(WorkspaceTest, DeleteAll_TakesItsKindsOfFilesInAnyCaseAndNothingElse)
{
    workspace.makeFolders();
    for (const auto* name : {"a.wmv", "B.WMV", "slide1.jpg", "Slide1.PNG", "MyZip.zip", "x.asf",
                             "slidetime.xml", "version.txt", "notes.pdf"})
        make(name);
    tests::writeFile(root / "Preview" / "b.wmv", "x");
    fs::create_directory(root / "folder.png");
    workspace.deleteAll();
    EXPECT_EQ(tests::namesIn(root), (Names{"Preview", "folder.png", "notes.pdf", "version.txt"}));
    EXPECT_EQ(tests::namesIn(root / "Preview"), Names{"b.wmv"});
}

TEST_F(WorkspaceTest, DeleteWMV_LeavesSlidesAndIndex)
{
    workspace.makeFolders();
    for (const auto* name : {"a.wmv", "MyZip.zip", "other.zip", "slide1.jpg", "Slide1.PNG", "slidetime.xml"})
        make(name);
    workspace.deleteWMV();
    EXPECT_EQ(tests::namesIn(root),
              (Names{"Preview", "Slide1.PNG", "other.zip", "slide1.jpg", "slidetime.xml"}));
}

TEST_F(WorkspaceTest, SetsThePathWithoutASeparatorAtItsEnd)
{
    fields.workspacePath = "elsewhere";
    workspace.deleteAll();
    EXPECT_EQ(fields.workspacePath, root.string());
    fields.workspacePath = "elsewhere";
    workspace.deleteWMV();
    EXPECT_EQ(fields.workspacePath, root.string());
}

TEST_F(WorkspaceTest, PointsToTheLocalFolderWithASeparatorAtItsEnd)
{
    workspace.pointToLocal();
    EXPECT_EQ(fields.workspacePath, folders.localAppData.string() + "/Quillora/");
}

TEST_F(WorkspaceTest, WritesTheVersionBelowThePathOfTheMoment)
{
    workspace.makeFolders();
    workspace.addVersion();
    EXPECT_EQ(tests::readFile(root / "version.txt"), "Version 3.13.0\r\n");
    fields.workspacePath = root.string() + "/Preview/";
    workspace.addVersion();
    EXPECT_TRUE(fs::exists(root / "Preview" / "version.txt"));
}

TEST_F(WorkspaceTest, ReportsAVersionFileThatCannotBeWritten)
{
    fields.workspacePath = root.string();
    EXPECT_THROW(workspace.addVersion(), std::runtime_error);
}

TEST_F(WorkspaceTest, DirExists_IsTheSameWithAndWithoutASeparator)
{
    const auto folder = disk.path().string();
    EXPECT_TRUE(DirExists(folder));
    EXPECT_TRUE(DirExists(folder + "/"));
    EXPECT_FALSE(DirExists(folder + "/missing"));
    EXPECT_FALSE(DirExists(folder + "/missing/"));
}

TEST_F(WorkspaceTest, DirExists_IsFalseForAFile)
{
    tests::writeFile(disk.path() / "file", "x");
    EXPECT_FALSE(DirExists((disk.path() / "file").string()));
}

} // namespace
} // namespace quillora::session
