#include "session/window_style.h"

#include "tests/support/fake_main_window.h"

#include <gtest/gtest.h>

using namespace quillora;

TEST(SetMinimizeBox, True_AlwaysGivesIt)
{
    tests::CallLog log;
    tests::FakeMainWindow window(log);
    for (const bool before : {false, true}) {
        window.minimizeBox = before;
        session::SetMinimizeBox(window, true);
        EXPECT_TRUE(window.minimizeBox);
    }
}

TEST(SetMinimizeBox, False_InvertsIt)
{
    tests::CallLog log;
    tests::FakeMainWindow window(log);
    session::SetMinimizeBox(window, false);
    EXPECT_FALSE(window.minimizeBox);
    session::SetMinimizeBox(window, false);
    EXPECT_TRUE(window.minimizeBox);
}
