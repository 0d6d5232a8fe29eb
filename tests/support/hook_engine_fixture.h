#pragma once

#include "messages/hook_engine.h"
#include "tests/support/hooked_windows.h"

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace quillora::tests {

inline constexpr int kMessage = 960;

/// An engine, a window whose own procedure tells that it was called, and an owner whose methods do, too.
class HookEngineTest : public testing::Test {
  protected:
    HookEngineTest() { world.windows.exchangeProcedure(window, old); }

    /// An engine whose owner has the methods "first" and "last".
    std::unique_ptr<messages::HookEngine> makeEngine(messages::HookEngine::Ports ports)
    {
        const auto method = [this](std::string name) {
            return [this, name](messages::HookedMessage& message) {
                world.log.add(name + (message.bBefore ? " before " : " after ") +
                              std::to_string(message.iMsg) + " " + std::to_string(message.lReturn));
                if (callback)
                    callback(message);
            };
        };
        return std::make_unique<messages::HookEngine>(
            ports, std::make_shared<messages::HookOwner>(
                       messages::HookOwner{"WaveInRecorder", {method("first"), method("last")}}));
    }

    messages::Result send(int message = kMessage) { return world.windows.send({window, message, 11, 22}); }
    const std::vector<std::string>& calls() const { return world.log.calls; }

    /// What a report in @p routine leaves behind: a line in the log, then a box.
    void expectReport(const std::string& routine, const std::string& text)
    {
        EXPECT_EQ(calls(), (std::vector<std::string>{"log WaveInRecorder." + routine + ": " + text,
                                                     "box " + text + "."}));
        ASSERT_FALSE(world.boxes.shown.empty());
        EXPECT_EQ(world.boxes.shown.back().title, "Error in WaveInRecorder." + routine);
        EXPECT_EQ(world.boxes.shown.back().icon, base::BoxIcon::warning);
        EXPECT_EQ(world.boxes.shown.back().buttons, base::BoxButtons::ok);
        world.log.clear();
    }

    HookedWindows world;
    std::shared_ptr<OldProcedure> old = std::make_shared<OldProcedure>(world.log);
    messages::WindowHandle window = world.windows.create("STATIC", "window");
    std::function<void(messages::HookedMessage&)> callback{};
    std::unique_ptr<messages::HookEngine> engine = makeEngine(world.ports());
};

} // namespace quillora::tests
