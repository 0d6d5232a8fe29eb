#include "forms/qt_key_state.h"

#include "tests/forms/form_fixture.h"

using namespace quillora;

namespace {

class QtKeyStateTest : public testing::Test {
  protected:
    ~QtKeyStateTest() override { keyboard("keyup", "ctrl"); }

    /// The real keyboard: no window of the program hears of it.
    void keyboard(const std::string& movement, const std::string& key)
    {
        EXPECT_EQ(tests::runToEnd({"xdotool", movement, key}), 0);
    }

    forms::QtKeyState keys;
};

} // namespace

TEST_F(QtKeyStateTest, KnowsWhetherControlIsDown)
{
    EXPECT_EQ(keys.GetAsyncKeyState(17), 0);
    keyboard("keydown", "ctrl");
    EXPECT_EQ(keys.GetAsyncKeyState(17), 0x8000);
    EXPECT_TRUE(panels::CtrlKey(keys));
    keyboard("keyup", "ctrl");
    EXPECT_EQ(keys.GetAsyncKeyState(17), 0);
    EXPECT_FALSE(panels::CtrlKey(keys));
}

TEST_F(QtKeyStateTest, KnowsNoOtherKey)
{
    keyboard("keydown", "ctrl");
    EXPECT_EQ(keys.GetAsyncKeyState(16), 0);
    keyboard("keyup", "ctrl");
    keyboard("keydown", "shift");
    EXPECT_EQ(keys.GetAsyncKeyState(16), 0);
    EXPECT_EQ(keys.GetAsyncKeyState(17), 0);
    keyboard("keyup", "shift");
}
