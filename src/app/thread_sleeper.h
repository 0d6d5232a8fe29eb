#pragma once

#include "session/sleeper.h"

#include <thread>

namespace quillora::app {

/// Blocks the one thread, as its callers want.
class ThreadSleeper : public session::Sleeper {
  public:
    void Sleep(std::chrono::milliseconds duration) override { std::this_thread::sleep_for(duration); }
};

} // namespace quillora::app
