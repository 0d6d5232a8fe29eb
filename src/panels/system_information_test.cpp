#include "panels/system_information.h"

#include "tests/support/fake_key_store.h"
#include "tests/support/fake_message_boxes.h"

#include <gtest/gtest.h>

#include <set>
#include <stdexcept>

using namespace quillora;
using namespace quillora::panels;

namespace {

constexpr const char* kToolKey = "SOFTWARE\\Microsoft\\Shared Tools\\MSINFO";
constexpr const char* kLocationKey = "SOFTWARE\\Microsoft\\Shared Tools Location";

struct FakePrograms : ProgramStarter {
    explicit FakePrograms(tests::CallLog& callLog) : log(callLog) {}
    bool fileExists(const std::filesystem::path& file) override { return files.contains(file.string()); }
    void run(const std::filesystem::path& program) override
    {
        log.add("run " + program.string());
        if (fails)
            throw std::runtime_error("not started");
    }

    tests::CallLog& log;
    std::set<std::string> files{};
    bool fails = false;
};

KeyStore::Value textValue(const std::string& text) { return {kTextValue, text + '\0'}; }

class SystemInformationTest : public testing::Test {
  protected:
    using Calls = std::vector<std::string>;

    std::string valueOf(const KeyStore::Value& value, const std::string& before = "")
    {
        keys.keys["key"]["value"] = value;
        std::string KeyVal = before;
        found = information.GetKeyValue(HKEY_LOCAL_MACHINE, "key", "value", KeyVal);
        return KeyVal;
    }

    tests::CallLog log;
    tests::FakeKeyStore keys{log};
    FakePrograms programs{log};
    tests::FakeMessageBoxes boxes{log};
    SystemInformation information{{.keys = keys, .programs = programs, .boxes = boxes}};
    bool found = false;
};

} // namespace

TEST_F(SystemInformationTest, PrefersThePathToTheLocation)
{
    keys.keys[kToolKey]["PATH"] = textValue("C:\\tool.exe");
    keys.keys[kLocationKey]["MSINFO"] = textValue("C:\\place");
    programs.files = {"C:\\place\\MSINFO32.EXE"};
    information.StartSysInfo();
    EXPECT_EQ(log.startingWith("run"), Calls{"run C:\\tool.exe"});
    EXPECT_TRUE(boxes.shown.empty());
    EXPECT_EQ(keys.openedRoot, 0x80000002U);
    EXPECT_EQ(keys.openedAccess, 0x2003FU);
}

TEST_F(SystemInformationTest, RunsThePathWithoutLookingForItsFile)
{
    keys.keys[kToolKey]["PATH"] = textValue("C:\\gone.exe");
    programs.fails = true;
    EXPECT_THROW(information.StartSysInfo(), std::runtime_error);
    EXPECT_EQ(log.startingWith("run"), Calls{"run C:\\gone.exe"});
    EXPECT_TRUE(boxes.shown.empty());
}

TEST_F(SystemInformationTest, TellsItsCallerOfAToolAtTheLocationThatCannotBeStarted)
{
    keys.keys[kLocationKey]["MSINFO"] = textValue("C:\\place");
    programs.files = {"C:\\place\\MSINFO32.EXE"};
    programs.fails = true;
    EXPECT_THROW(information.StartSysInfo(), std::runtime_error);
    EXPECT_TRUE(boxes.shown.empty());
}

TEST_F(SystemInformationTest, FallsBackToTheToolAtTheLocation)
{
    keys.keys[kLocationKey]["MSINFO"] = textValue("C:\\place");
    programs.files = {"C:\\place\\MSINFO32.EXE"};
    information.StartSysInfo();
    EXPECT_EQ(log.startingWith("run"), Calls{"run C:\\place\\MSINFO32.EXE"});
    EXPECT_TRUE(boxes.shown.empty());
}

TEST_F(SystemInformationTest, SaysThatItIsUnavailableWhereTheLocationHoldsNoTool)
{
    keys.keys[kLocationKey]["MSINFO"] = textValue("C:\\place");
    information.StartSysInfo();
    ASSERT_EQ(boxes.shown.size(), 1U);
    EXPECT_EQ(log.startingWith("run"), Calls{});
}

TEST_F(SystemInformationTest, SaysThatItIsUnavailableInAPlainBox)
{
    information.StartSysInfo();
    ASSERT_EQ(boxes.shown.size(), 1U);
    EXPECT_EQ(boxes.shown[0].text, "System Information Is Unavailable At This Time");
    EXPECT_EQ(boxes.shown[0].title, "");
    EXPECT_EQ(boxes.shown[0].icon, base::BoxIcon::none);
    EXPECT_EQ(boxes.shown[0].buttons, base::BoxButtons::ok);
}

TEST_F(SystemInformationTest, KeyValueOfAMissingKeyIsEmptyAndTheKeyIsClosed)
{
    std::string KeyVal = "before";
    EXPECT_FALSE(information.GetKeyValue(HKEY_LOCAL_MACHINE, "none", "value", KeyVal));
    EXPECT_EQ(KeyVal, "");
    EXPECT_EQ(log.calls, (Calls{"keys.open none", "keys.close"}));
}

TEST_F(SystemInformationTest, KeyValueOfAMissingValueIsEmptyAndTheKeyIsClosed)
{
    keys.keys["key"] = {};
    std::string KeyVal = "before";
    EXPECT_FALSE(information.GetKeyValue(HKEY_LOCAL_MACHINE, "key", "value", KeyVal));
    EXPECT_EQ(KeyVal, "");
    EXPECT_EQ(log.calls, (Calls{"keys.open key", "keys.query value", "keys.close"}));
}

TEST_F(SystemInformationTest, KeyValueOfATextIsTheTextWithoutItsNul)
{
    EXPECT_EQ(valueOf(textValue("C:\\tool.exe"), "before"), "C:\\tool.exe");
    EXPECT_TRUE(found);
    EXPECT_EQ(log.calls.back(), "keys.close");
    EXPECT_EQ(valueOf({kTextValue, "no NUL"}), "no NUL");
    EXPECT_EQ(valueOf({kTextValue, std::string("two\0\0", 5)}), std::string("two\0", 4));
    EXPECT_EQ(valueOf({kTextValue, ""}, "before"), "");
}

TEST_F(SystemInformationTest, KeyValueOfANumberIsItsDecimalText)
{
    EXPECT_EQ(valueOf({kNumberValue, std::string("\x2A\x00\x00\x00", 4)}), "42");
    EXPECT_EQ(valueOf({kNumberValue, "\xFF\xFF\xFF\xFF"}), "4294967295");
    EXPECT_EQ(valueOf({kNumberValue, "\x78\x56\x34\x12"}), "305419896");
    EXPECT_TRUE(found);
}

TEST_F(SystemInformationTest, KeyValueOfANumberTakesABytesDigitsAsTheyAre)
{
    // 0x0201, of which one byte gives "2" and the other "1": &h0021 at first sight, and &h21 in the end.
    EXPECT_EQ(valueOf({kNumberValue, std::string("\x01\x02\x00\x00", 4)}), "33");
}

TEST_F(SystemInformationTest, KeyValueOfANumberStandsBehindWhatWasThere)
{
    EXPECT_EQ(valueOf({kNumberValue, std::string("\x0A\x00\x00\x00", 4)}, "1"), "4106");
    EXPECT_EQ(valueOf({kNumberValue, std::string("\x0A\x00\x00\x00", 4)}, "no number"), "");
    EXPECT_FALSE(found);
}

TEST_F(SystemInformationTest, KeyValueOfAnotherTypeIsLeftAsItWas)
{
    EXPECT_EQ(valueOf({3, "binary"}, "before"), "before");
    EXPECT_TRUE(found);
}

TEST_F(SystemInformationTest, KeyValueOfMoreThan1024CharactersIsNone)
{
    EXPECT_EQ(valueOf({kTextValue, std::string(1024, 'x')}), std::string(1024, 'x'));
    EXPECT_EQ(valueOf({kTextValue, std::string(1025, 'x')}, "before"), "");
    EXPECT_FALSE(found);
}
