#include "forms/desktop.h"
#include "tests/forms/form_fixture.h"
#include "tests/forms/stand_in_desktop.h"
#include "tests/support/file_contents.h"

#include <gtest/gtest.h>

#include <dirent.h>

#include <fstream>

using namespace quillora;
using tests::waitUntil;

namespace {

class DesktopTest : public testing::Test {
  protected:
    bool started(const std::string& line)
    {
        return waitUntil([&] { return desktop.heard() == line; });
    }

    tests::TemporaryFolder folder;
    tests::StandInDesktop desktop{folder.path()};
    forms::DesktopApplications applications;
    forms::DesktopPrograms starter;
    forms::DesktopSettings settings;
};

int children()
{
    int count = 0;
    DIR* processes = ::opendir("/proc");
    while (const dirent* entry = ::readdir(processes)) {
        std::ifstream status(std::string("/proc/") + entry->d_name + "/status");
        for (std::string line; std::getline(status, line);)
            if (line.starts_with("PPid:") && std::atoi(line.c_str() + 5) == ::getpid())
                ++count;
    }
    ::closedir(processes);
    return count;
}

} // namespace

TEST_F(DesktopTest, OpensAnAddressWithWhatTheDesktopHasForIt)
{
    desktop.standIn("xdg-open");
    applications.open("http://localhost:8480/v3/upload");
    EXPECT_TRUE(started("xdg-open:http://localhost:8480/v3/upload\n"));
}

TEST_F(DesktopTest, OpensADocumentThatIsThere)
{
    desktop.standIn("xdg-open");
    const auto document = folder.path() / "Vantry_QGuide.pdf";
    tests::writeFile(document, "%PDF");
    applications.open(document.string());
    EXPECT_TRUE(started("xdg-open:" + document.string() + "\n"));
}

TEST_F(DesktopTest, IsSilentAboutADocumentThatIsMissing)
{
    desktop.standIn("xdg-open");
    EXPECT_NO_THROW(applications.open((folder.path() / "Vantry_QGuide.pdf").string()));
    EXPECT_NO_THROW(applications.open((folder.path() / "Support.chm").string()));
    tests::settle(300);
    EXPECT_EQ(desktop.heard(), "");
}

TEST_F(DesktopTest, TakesTheHelpPageForTheHelpFile)
{
    desktop.standIn("xdg-open");
    tests::writeFile(folder.path() / "Support.html", "<p>help");
    applications.open((folder.path() / "Support.chm").string());
    EXPECT_TRUE(started("xdg-open:" + (folder.path() / "Support.html").string() + "\n"));
}

TEST_F(DesktopTest, PrefersTheHelpFileItself)
{
    desktop.standIn("xdg-open");
    tests::writeFile(folder.path() / "Support.html", "<p>help");
    tests::writeFile(folder.path() / "Support.chm", "help");
    applications.open((folder.path() / "Support.chm").string());
    EXPECT_TRUE(started("xdg-open:" + (folder.path() / "Support.chm").string() + "\n"));
}

TEST_F(DesktopTest, LeavesNothingBehindOfWhatItStarted)
{
    desktop.standIn("xdg-open");
    const int before = children();
    applications.open("http://localhost/");
    EXPECT_TRUE(started("xdg-open:http://localhost/\n"));
    EXPECT_EQ(children(), before);
}

TEST_F(DesktopTest, KnowsThePathOfItsInformationTool)
{
    panels::KeyStore::Handle key = 0;
    panels::KeyStore::Value value;
    ASSERT_EQ(settings.RegOpenKeyExA(panels::HKEY_LOCAL_MACHINE, "SOFTWARE\\Microsoft\\Shared Tools\\MSINFO",
                                     panels::kAllAccess, key),
              0);
    desktop.standIn("hardinfo");
    ASSERT_EQ(settings.RegQueryValueExA(key, "PATH", 1024, value), 0);
    EXPECT_EQ(value.type, panels::kTextValue);
    EXPECT_EQ(value.bytes, (desktop.programs() / "hardinfo").string() + '\0');
    EXPECT_NE(settings.RegQueryValueExA(key, "PATH", 3, value), 0);
    EXPECT_NE(settings.RegQueryValueExA(key, "OTHER", 1024, value), 0);
}

TEST_F(DesktopTest, KnowsNoOtherSettings)
{
    panels::KeyStore::Handle key = 0;
    EXPECT_NE(settings.RegOpenKeyExA(panels::HKEY_LOCAL_MACHINE, "SOFTWARE", panels::kAllAccess, key), 0);
    EXPECT_NE(settings.RegOpenKeyExA(1, "SOFTWARE\\Microsoft\\Shared Tools\\MSINFO", panels::kAllAccess, key),
              0);
}

TEST_F(DesktopTest, StartsAProgramAndSaysWhenItCannot)
{
    desktop.standIn("hardinfo");
    starter.run(desktop.programs() / "hardinfo");
    EXPECT_TRUE(started("hardinfo:\n"));
    EXPECT_THROW(starter.run(desktop.programs() / "missing"), std::runtime_error);
    EXPECT_TRUE(starter.fileExists(desktop.programs() / "hardinfo"));
    EXPECT_FALSE(starter.fileExists(desktop.programs() / "missing"));
}
