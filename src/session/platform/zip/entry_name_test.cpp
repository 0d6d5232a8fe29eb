#include "session/platform/zip/entry_name.h"

#include <gtest/gtest.h>

#include <string>

namespace quillora::session {
namespace {

TEST(EntryName, IsPlainWhereItNamesOneFile)
{
    for (const std::string name :
         {"version.txt", "Slide1.PNG", "aB3dE6gH.wmv", "no ending", ".hidden", "...", "a..b", "Ünï.jpg"})
        EXPECT_TRUE(isPlainName(name)) << name;
    EXPECT_TRUE(isPlainName(std::string(255, 'x')));
}

TEST(EntryName, IsNotPlainWhereItLeadsElsewhere)
{
    for (const std::string name :
         {"", ".", "..", "../up.wmv", "a/b.wmv", "/etc/passwd", "folder/", "..\\up.wmv", "C:\\x.wmv",
          "C:x.wmv", "a.wmv:stream", "line\nend", "\x1b[2J", "\x7f"})
        EXPECT_FALSE(isPlainName(name)) << name;
    EXPECT_FALSE(isPlainName(std::string(256, 'x')));
    EXPECT_FALSE(isPlainName(std::string("a\0b", 3)));
}

} // namespace
} // namespace quillora::session
