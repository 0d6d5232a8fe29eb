#include "messages/reg_hot_key.h"

#include "tests/support/fake_hot_key_ports.h"
#include "tests/support/hooked_windows.h"

#include <gtest/gtest.h>

#include <optional>

using namespace quillora::messages;
using namespace quillora::tests;

namespace {

using Calls = std::vector<std::string>;

struct Press {
    std::string sName;
    std::uint32_t eModifiers;
    std::uint32_t eKey;

    bool operator==(const Press&) const = default;
};

class HotKeyTest : public testing::Test {
  protected:
    HotKeyTest()
    {
        make();
        m_cHotKey->Attach(window);
        world.log.clear();
    }

    void make(const std::string& executableName = "quillora")
    {
        m_cHotKey = std::make_unique<cRegHotKey>(cRegHotKey::Ports{.hooks = hooks,
                                                                   .keys = keys,
                                                                   .atoms = atoms,
                                                                   .errors = world.errors,
                                                                   .windows = display,
                                                                   .GetTickCount = [] { return 4711U; },
                                                                   .executableName = executableName});
        m_cHotKey->HotKeyPress = [this](const std::string& name, std::uint32_t modifiers, std::uint32_t key) {
            presses.push_back({name, modifiers, key});
        };
    }

    void press(Parameter wParam, Parameter lParam = 0) { world.windows.send({window, 786, wParam, lParam}); }
    const Calls& calls() const { return world.log.calls; }

    /// Expects the error with this number and text, and the class's source.
    void expectError(const std::function<void()>& operation, std::uint32_t number, const std::string& text)
    {
        try {
            operation();
            ADD_FAILURE() << "raised nothing";
        } catch (const HotKeyError& error) {
            EXPECT_EQ(error.number(), number);
            EXPECT_EQ(error.what(), text);
            EXPECT_EQ(error.source(), "quillora.cRegHotKey");
        }
    }

    HookedWindows world;
    FakeHotKeys keys{world.log};
    FakeAtoms atoms{world.log};
    FakeWindowDisplay display{world.log};
    MessageHookService hooks{world.ports()};
    WindowHandle window = world.windows.create("FORM", "");
    std::vector<Press> presses;
    std::unique_ptr<cRegHotKey> m_cHotKey;
};

/// 0xC001 of the first atom, sign-extended.
constexpr std::int32_t kFirstId = -16383;

} // namespace

TEST_F(HotKeyTest, RegistersUnderAnAtomOfNameProgramAndTickCount)
{
    m_cHotKey->RegisterKey("Activate", 82, 2);
    EXPECT_EQ(calls(),
              (Calls{"atoms.GlobalAddAtom Activate_quillora_4711", "keys.RegisterHotKey 1 -16383 2 82"}));
    EXPECT_EQ(m_cHotKey->count(), 1);
}

TEST_F(HotKeyTest, TellsAPressWithWhatWasRegistered)
{
    m_cHotKey->RegisterKey("Activate", 82, 2);
    m_cHotKey->RegisterKey("Other", 83, 5);
    press(kFirstId);
    press(kFirstId + 1);
    EXPECT_EQ(presses, (std::vector<Press>{{"Activate", 2, 82}, {"Other", 5, 83}}));
}

TEST_F(HotKeyTest, TellsTheKeysThatTakeAPictureOfTheScreen)
{
    press(-2, 0x10001);
    press(-1, 0x10001);
    EXPECT_EQ(presses, (std::vector<Press>{{"Desktop Snapshot", 0, 44}, {"Window Snapshot", 4, 44}}));
}

TEST_F(HotKeyTest, TellsAnUnknownIdByWhatTheMessageCarries)
{
    press(77, (82 << 16) | 2);
    EXPECT_EQ(presses, (std::vector<Press>{{"Unknown HotKey", 2, 82}}));
}

TEST_F(HotKeyTest, RoundsTheKeyOfAnUnknownId)
{
    press(77, (82 << 16) | 0x8001);
    press(77, (82 << 16) | 0x8000);
    press(77, (83 << 16) | 0x8000);
    EXPECT_EQ(presses, (std::vector<Press>{{"Unknown HotKey", 0x8001, 83},
                                           {"Unknown HotKey", 0x8000, 82},
                                           {"Unknown HotKey", 0x8000, 84}}));
}

TEST_F(HotKeyTest, NeedsNobodyToListen)
{
    m_cHotKey->HotKeyPress = {};
    press(-2);
    EXPECT_TRUE(presses.empty());
}

TEST_F(HotKeyTest, LeavesTheResultOfTheMessageAtZero)
{
    EXPECT_EQ(world.windows.send({window, 786, -2, 0}), 0);
}

TEST_F(HotKeyTest, AsksForDefaultProcessingWhateverItIsTold)
{
    EXPECT_EQ(m_cHotKey->MsgResponse(), 2);
    m_cHotKey->MsgResponse(0);
    EXPECT_EQ(m_cHotKey->MsgResponse(), 2);
}

TEST_F(HotKeyTest, TakesANameOf32CharactersAndRefusesOneOf33)
{
    m_cHotKey->RegisterKey(std::string(32, 'n'), 82, 2);
    EXPECT_EQ(m_cHotKey->count(), 1);
    world.log.clear();
    expectError([&] { m_cHotKey->RegisterKey(std::string(33, 'n'), 83, 2); }, 0x8004041B,
                "Key Name too long (max 32 characters).");
    EXPECT_EQ(m_cHotKey->count(), 1);
    EXPECT_TRUE(calls().empty());
}

TEST_F(HotKeyTest, CountsANamesCharactersNotItsBytes)
{
    std::string name;
    for (int i = 0; i < 32; ++i)
        name += "\u0639";
    m_cHotKey->RegisterKey(name, 82, 2);
    EXPECT_EQ(m_cHotKey->count(), 1);
    expectError([&] { m_cHotKey->RegisterKey(name + "x", 82, 2); }, 0x8004041B,
                "Key Name too long (max 32 characters).");
}

TEST_F(HotKeyTest, RefusesANameThatIsRegisteredAndKeepsTheFirst)
{
    m_cHotKey->RegisterKey("Activate", 82, 2);
    world.log.clear();
    expectError([&] { m_cHotKey->RegisterKey("Activate", 83, 4); }, 0x8004041C,
                "The Key Name 'Activate' is already registered.");
    EXPECT_TRUE(calls().empty());
    press(kFirstId);
    EXPECT_EQ(presses, (std::vector<Press>{{"Activate", 2, 82}}));
}

TEST_F(HotKeyTest, TellsNamesApartByCase)
{
    m_cHotKey->RegisterKey("Activate", 82, 2);
    m_cHotKey->RegisterKey("activate", 83, 2);
    EXPECT_EQ(m_cHotKey->count(), 2);
    m_cHotKey->UnregisterKey("activate");
    press(kFirstId);
    EXPECT_EQ(presses, (std::vector<Press>{{"Activate", 2, 82}}));
}

TEST_F(HotKeyTest, CutsALongAtomNameTo254Characters)
{
    const std::string program(243, 'x');
    make(program);
    m_cHotKey->RegisterKey("Activate", 82, 2);
    EXPECT_EQ(calls().front(), "atoms.GlobalAddAtom Activate_" + program + "_4");
}

TEST_F(HotKeyTest, CountsAnAtomNamesCharactersNotItsBytes)
{
    std::string program;
    for (int i = 0; i < 243; ++i)
        program += "\u0639";
    make(program);
    m_cHotKey->RegisterKey("Activate", 82, 2);
    EXPECT_EQ(calls().front(), "atoms.GlobalAddAtom Activate_" + program + "_4");
}

TEST_F(HotKeyTest, RaisesTheFailureOfAnAtomWithTheSystemsText)
{
    atoms.full = true;
    world.errors.number = 8;
    world.errors.textOfNumber = "Not enough memory";
    expectError([&] { m_cHotKey->RegisterKey("Activate", 82, 2); }, 0x8004041A,
                "Failed to add GlobalAtom [Not enough memory]");
    EXPECT_EQ(m_cHotKey->count(), 0);
}

TEST_F(HotKeyTest, RaisesTheFailureOfAnAtomWithoutTextWhereTheSystemHasNone)
{
    atoms.full = true;
    expectError([&] { m_cHotKey->RegisterKey("Activate", 82, 2); }, 0x8004041A, "Failed to add GlobalAtom");
}

TEST_F(HotKeyTest, KeepsOf256CharactersOfTheSystemsText)
{
    atoms.full = true;
    world.errors.textOfNumber = std::string(300, 'e');
    expectError([&] { m_cHotKey->RegisterKey("Activate", 82, 2); }, 0x8004041A,
                "Failed to add GlobalAtom [" + std::string(256, 'e') + "]");
}

TEST_F(HotKeyTest, SaysNothingWhenAnotherProgramHoldsTheKey)
{
    keys.taken = true;
    world.errors.number = 13;
    world.errors.textOfNumber = "Permission denied";
    EXPECT_NO_THROW(m_cHotKey->RegisterKey("Activate", 82, 2));
    EXPECT_EQ(m_cHotKey->count(), 0);
    EXPECT_EQ(calls(), (Calls{"atoms.GlobalAddAtom Activate_quillora_4711",
                              "keys.RegisterHotKey 1 -16383 2 82", "atoms.GlobalDeleteAtom 49153"}));
    keys.taken = false;
    m_cHotKey->RegisterKey("Activate", 82, 2);
    EXPECT_EQ(m_cHotKey->count(), 1);
}

TEST_F(HotKeyTest, UnregistersKeyAndAtom)
{
    m_cHotKey->RegisterKey("Activate", 82, 2);
    world.log.clear();
    m_cHotKey->UnregisterKey("Activate");
    EXPECT_EQ(calls(), (Calls{"keys.UnregisterHotKey 1 -16383", "atoms.GlobalDeleteAtom 49153"}));
    EXPECT_EQ(m_cHotKey->count(), 0);
}

TEST_F(HotKeyTest, MovesLaterKeysUpWhenOneIsUnregistered)
{
    m_cHotKey->RegisterKey("one", 82, 2);
    m_cHotKey->RegisterKey("two", 83, 2);
    m_cHotKey->RegisterKey("three", 84, 2);
    m_cHotKey->UnregisterKey("one");
    EXPECT_EQ(m_cHotKey->count(), 2);
    press(kFirstId + 1);
    press(kFirstId + 2);
    EXPECT_EQ(presses, (std::vector<Press>{{"two", 2, 83}, {"three", 2, 84}}));
}

TEST_F(HotKeyTest, RaisesAnUnknownName)
{
    expectError([&] { m_cHotKey->UnregisterKey("Activate"); }, 0x80040419,
                "No hot key registered under the name 'Activate'");
}

TEST_F(HotKeyTest, ClearAfterTheLastKeyIsHarmless)
{
    m_cHotKey->RegisterKey("Activate", 82, 2);
    m_cHotKey->UnregisterKey("Activate");
    EXPECT_NO_THROW(m_cHotKey->Clear());
    EXPECT_NO_THROW(m_cHotKey->Clear());
    EXPECT_EQ(m_cHotKey->attachedWindow(), 0U);
}

TEST_F(HotKeyTest, ClearGivesBackTheOneKeyAndDetaches)
{
    m_cHotKey->RegisterKey("Activate", 82, 2);
    m_cHotKey->Clear();
    EXPECT_EQ(world.log.count("keys.UnregisterHotKey 1 -16383"), 1);
    EXPECT_EQ(m_cHotKey->attachedWindow(), 0U);
    press(-2);
    EXPECT_TRUE(presses.empty());
}

TEST_F(HotKeyTest, ClearOfTwoKeysRunsPastTheEndOfTheTable)
{
    m_cHotKey->RegisterKey("one", 82, 2);
    m_cHotKey->RegisterKey("two", 83, 2);
    EXPECT_THROW(m_cHotKey->Clear(), std::out_of_range);
    EXPECT_EQ(m_cHotKey->count(), 1);
    EXPECT_EQ(m_cHotKey->attachedWindow(), window);
    press(kFirstId + 1);
    EXPECT_EQ(presses, (std::vector<Press>{{"two", 2, 83}}));
}

TEST_F(HotKeyTest, ClearOfThreeKeysSkipsTheSecond)
{
    m_cHotKey->RegisterKey("one", 82, 2);
    m_cHotKey->RegisterKey("two", 83, 2);
    m_cHotKey->RegisterKey("three", 84, 2);
    EXPECT_THROW(m_cHotKey->Clear(), std::out_of_range);
    EXPECT_EQ(world.log.startingWith("keys.Unregister"),
              (Calls{"keys.UnregisterHotKey 1 -16383", "keys.UnregisterHotKey 1 -16381"}));
    EXPECT_EQ(m_cHotKey->count(), 1);
}

TEST_F(HotKeyTest, EndGivesBackTheKey)
{
    m_cHotKey->RegisterKey("Activate", 82, 2);
    m_cHotKey.reset();
    EXPECT_EQ(world.log.count("keys.UnregisterHotKey 1 -16383"), 1);
    press(-2);
    EXPECT_TRUE(presses.empty());
}

TEST_F(HotKeyTest, EndGivesBackEveryKeyThoughClearingThemFails)
{
    for (const char* name : {"one", "two", "three"})
        m_cHotKey->RegisterKey(name, 82, 2);
    m_cHotKey.reset();
    EXPECT_EQ(world.log.startingWith("keys.Unregister").size(), 3U);
    press(-2);
    EXPECT_TRUE(presses.empty());
}

TEST_F(HotKeyTest, EndOfTheWindowGivesBackTheKey)
{
    m_cHotKey->RegisterKey("Activate", 82, 2);
    world.windows.destroy(window);
    EXPECT_EQ(world.log.count("keys.UnregisterHotKey 1 -16383"), 1);
    EXPECT_EQ(m_cHotKey->attachedWindow(), 0U);
    EXPECT_EQ(m_cHotKey->count(), 0);
}

TEST_F(HotKeyTest, AttachingToNoWindowClearsAndStaysDetached)
{
    m_cHotKey->RegisterKey("Activate", 82, 2);
    m_cHotKey->Attach(0);
    EXPECT_EQ(world.log.count("keys.UnregisterHotKey 1 -16383"), 1);
    EXPECT_EQ(m_cHotKey->attachedWindow(), 0U);
    press(-2);
    EXPECT_TRUE(presses.empty());
}

TEST_F(HotKeyTest, AttachingToAnotherWindowLeavesTheFirst)
{
    const WindowHandle other = world.windows.create("FORM", "");
    m_cHotKey->Attach(other);
    m_cHotKey->RegisterKey("Activate", 82, 2);
    EXPECT_EQ(world.log.count("keys.RegisterHotKey 2 -16383 2 82"), 1);
    press(kFirstId);
    EXPECT_TRUE(presses.empty());
    world.windows.send({other, 786, kFirstId, 0});
    EXPECT_EQ(presses.size(), 1U);
}

TEST_F(HotKeyTest, AttachingAgainGivesBackTheOldKeyFirst)
{
    m_cHotKey->RegisterKey("Activate", 82, 2);
    world.log.clear();
    m_cHotKey->Attach(window);
    m_cHotKey->RegisterKey("Activate", 82, 2);
    EXPECT_EQ(world.log.startingWith("keys."),
              (Calls{"keys.UnregisterHotKey 1 -16383", "keys.RegisterHotKey 1 -16382 2 82"}));
    press(kFirstId + 1);
    EXPECT_EQ(presses.size(), 1U);
}

TEST_F(HotKeyTest, ReceiverMayReplaceTheObjectThatCallsIt)
{
    m_cHotKey->RegisterKey("Activate", 82, 2);
    m_cHotKey->HotKeyPress = [this](const std::string&, std::uint32_t, std::uint32_t) {
        m_cHotKey.reset();
        make();
        m_cHotKey->Attach(window);
    };
    press(kFirstId);
    press(-2);
    EXPECT_EQ(presses, (std::vector<Press>{{"Desktop Snapshot", 0, 44}}));
}

TEST_F(HotKeyTest, BringsAWindowThatIsThereToTheFront)
{
    m_cHotKey->RestoreAndActivate(9);
    EXPECT_EQ(calls(), Calls{"windows.SetForegroundWindow 9"});
}

TEST_F(HotKeyTest, ShowsAHiddenWindowAndRestoresAMinimisedOne)
{
    display.visible = false;
    display.iconic = true;
    m_cHotKey->RestoreAndActivate(9);
    EXPECT_EQ(calls(), (Calls{"windows.ShowWindow 9 5", "windows.SendMessage 9 274 61728 0",
                              "windows.SetForegroundWindow 9"}));
}
