// The program that runs the tests of the forms: on a display of its own with a window manager, so that focus,
// window states and pixels are those that a presenter would get.

#include "forms/look.h"
#include "tests/forms/x11_probe.h"
#include "tests/support/child_process.h"
#include "tests/support/private_x_server.h"
#include "tests/support/temporary_folder.h"

#include <QApplication>

#include <gtest/gtest.h>

#include <cstdio>
#include <cstdlib>
#include <optional>
#include <string>
#include <thread>
#include <vector>

using namespace quillora;

namespace {

/// Window managers say on the root window that they have begun their work.
bool windowManagerRuns()
{
    const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(20);
    while (std::chrono::steady_clock::now() < deadline) {
        if (tests::X11Probe().hasWindowManager())
            return true;
        std::this_thread::sleep_for(std::chrono::milliseconds(20));
    }
    return false;
}

} // namespace

// Under the address sanitizer, its leak checker falls over the toolkit's threads in one program of fifty: it
// reads what they have just given back. What is ours to free is checked in the tests of the logic.
extern "C" int __lsan_is_turned_off();
extern "C" int __lsan_is_turned_off() { return 1; }

int main(int argc, char** argv)
{
    testing::InitGoogleTest(&argc, argv);
    if (GTEST_FLAG_GET(list_tests))
        return RUN_ALL_TESTS();

    const tests::TemporaryFolder home(tests::TemporaryFolder::Name::plain);
    const tests::PrivateXServer server(
        {.width = QUILLORA_TEST_SCREEN_WIDTH, .height = QUILLORA_TEST_SCREEN_HEIGHT});
    ::setenv("DISPLAY", server.display().c_str(), 1);
    ::setenv("HOME", home.path().c_str(), 1);
    ::setenv("XDG_RUNTIME_DIR", home.path().c_str(), 1);
    ::setenv("QT_QPA_PLATFORM", "xcb", 1);
    ::setenv("QT_LINUX_ACCESSIBILITY_ALWAYS_ON", "0", 1);
    ::setenv("QT_SCALE_FACTOR", QUILLORA_TEST_SCALE_FACTOR, 1);
    std::optional<tests::ChildProcess> windowManager;
    if (*QUILLORA_TEST_WINDOW_MANAGER != '\0') {
        windowManager.emplace(std::vector<std::string>{QUILLORA_TEST_WINDOW_MANAGER});
        if (!windowManagerRuns()) {
            std::fputs("no window manager came up\n", stderr);
            return 1;
        }
    }

    QApplication application(argc, argv);
    QApplication::setAttribute(Qt::AA_CompressHighFrequencyEvents, false);
    QApplication::setQuitOnLastWindowClosed(false);
    forms::applyLook(application);
    return RUN_ALL_TESTS();
}
