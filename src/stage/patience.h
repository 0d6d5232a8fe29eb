#pragma once

#include <chrono>
#include <condition_variable>
#include <functional>
#include <mutex>

namespace quillora::stage {

/// How the thread of forms and logic waits for an answer of a device: not for ever, and letting the window's
/// events through, so that the window is painted and its clock goes on while a camera takes its time.
struct Patience {
    /// The presenter can do nothing meanwhile, in a recording either.
    std::chrono::milliseconds longest{700};
    std::function<void()> letEventsThrough = [] {};
};

/// Waits under @p lock until @p done says so or the patience is over; gives what @p done says then.
template <typename Done>
bool waitFor(std::condition_variable& changed, std::unique_lock<std::mutex>& lock, const Patience& patience,
             Done&& done)
{
    using namespace std::chrono_literals;
    // Most devices answer at once: then no event gets in between.
    if (changed.wait_for(lock, 30ms, done))
        return true;
    const auto deadline = std::chrono::steady_clock::now() + patience.longest;
    while (!done() && std::chrono::steady_clock::now() < deadline) {
        lock.unlock();
        patience.letEventsThrough();
        lock.lock();
        changed.wait_for(lock, 15ms, done);
    }
    return done();
}

} // namespace quillora::stage
