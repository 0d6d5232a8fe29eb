#include "forms/qt_timer.h"

#include "tests/forms/form_fixture.h"

#include <vector>

using namespace quillora;
using namespace std::chrono_literals;
using forms::QtTimer;
using tests::settle;
using tests::waitUntil;

TEST(QtTimer, TicksOnlyWhileItIsEnabled)
{
    int ticks = 0;
    QtTimer timer(10ms, [&] { ++ticks; });
    settle(60);
    EXPECT_EQ(ticks, 0);
    timer.enable();
    EXPECT_EQ(ticks, 0);
    EXPECT_TRUE(waitUntil([&] { return ticks >= 3; }));
    timer.disable();
    ticks = 0;
    settle(60);
    EXPECT_EQ(ticks, 0);
}

TEST(QtTimer, KeepsItsPhaseWhenItIsEnabledAgain)
{
    int ticks = 0;
    QtTimer timer(300ms, [&] { ++ticks; });
    timer.enable();
    // A timer that began anew at each of these would never tick.
    EXPECT_TRUE(waitUntil([&] {
        timer.enable();
        return ticks >= 2;
    }));
}

TEST(QtTimer, CanBeDisabledByItsOwnTick)
{
    int ticks = 0;
    QtTimer* self = nullptr;
    QtTimer timer(5ms, [&] {
        ++ticks;
        self->disable();
    });
    self = &timer;
    timer.enable();
    EXPECT_TRUE(waitUntil([&] { return ticks == 1; }));
    settle(60);
    EXPECT_EQ(ticks, 1);
}
