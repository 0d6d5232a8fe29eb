#include "app/user_folders.h"

#include <gtest/gtest.h>

#include <map>

using namespace quillora::app;

namespace {

quillora::session::UserFolders foldersIn(std::map<std::string, std::string> variables)
{
    return findUserFolders(
        [&](const std::string& name) -> std::optional<std::string> {
            const auto found = variables.find(name);
            return found == variables.end() ? std::nullopt : std::optional(found->second);
        },
        "/home/fallback");
}

} // namespace

TEST(UserFolders, AreTheVariablesWhereTheyAreSet)
{
    const auto folders =
        foldersIn({{"APPDATA", "/big/data"}, {"LOCALAPPDATA", "/big/local"}, {"HOME", "/home/a"}});
    EXPECT_EQ(folders.appData, "/big/data");
    EXPECT_EQ(folders.localAppData, "/big/local");
}

TEST(UserFolders, AreTheDesktopsFoldersOtherwise)
{
    const auto folders =
        foldersIn({{"XDG_DATA_HOME", "/x/data"}, {"XDG_CACHE_HOME", "/x/cache"}, {"HOME", "/home/a"}});
    EXPECT_EQ(folders.appData, "/x/data");
    EXPECT_EQ(folders.localAppData, "/x/cache");
}

TEST(UserFolders, LieInTheHomeFolderByDefault)
{
    const auto folders = foldersIn({{"HOME", "/home/a"}});
    EXPECT_EQ(folders.appData, "/home/a/.local/share");
    EXPECT_EQ(folders.localAppData, "/home/a/.cache");
}

TEST(UserFolders, IgnoreEmptyVariablesAndRelativeDesktopFolders)
{
    const auto folders = foldersIn({{"APPDATA", ""}, {"XDG_DATA_HOME", "data"}, {"XDG_CACHE_HOME", "cache"}});
    EXPECT_EQ(folders.appData, "/home/fallback/.local/share");
    EXPECT_EQ(folders.localAppData, "/home/fallback/.cache");
}
