#include "messages/platform/x11/key_connection.h"

#include <poll.h>
#include <xcb/xcbext.h>

#include <algorithm>
#include <condition_variable>
#include <mutex>
#include <system_error>
#include <thread>

namespace quillora::messages {
namespace {

struct Connected {
    xcb_connection_t* connection = nullptr;
    int screen = 0;
};

/// What caller and connecting thread have in common; whoever comes last cleans up.
struct Attempt {
    std::mutex mutex{};
    std::condition_variable changed{};
    /// All below guarded by the mutex.
    Connected made{};
    bool done = false;
    bool abandoned = false;
};

Connected connectWithin(const std::optional<std::string>& display, std::chrono::milliseconds limit)
{
    const auto attempt = std::make_shared<Attempt>();
    std::thread([attempt, display] {
        Connected made;
        made.connection = xcb_connect(display ? display->c_str() : nullptr, &made.screen);
        const std::lock_guard lock(attempt->mutex);
        if (attempt->abandoned)
            xcb_disconnect(made.connection);
        attempt->made = made;
        attempt->done = true;
        attempt->changed.notify_one();
    }).detach();
    std::unique_lock lock(attempt->mutex);
    attempt->abandoned = !attempt->changed.wait_for(lock, limit, [&] { return attempt->done; });
    return attempt->abandoned ? Connected{} : attempt->made;
}

xcb_window_t rootOf(xcb_connection_t* connection, int screen)
{
    auto screens = xcb_setup_roots_iterator(xcb_get_setup(connection));
    for (int skipped = 0; skipped < screen && screens.rem > 1; ++skipped)
        xcb_screen_next(&screens);
    return screens.rem > 0 ? screens.data->root : xcb_window_t{XCB_WINDOW_NONE};
}

} // namespace

KeyConnection::KeyConnection(const std::optional<std::string>& display)
{
    Connected made;
    try {
        made = connectWithin(display, kPatience);
    } catch (const std::system_error&) {
        // A process that can't have one more thread runs without hot keys.
    }
    m_connection.reset(made.connection);
    if (!broken())
        m_root = rootOf(get(), made.screen);
}

bool KeyConnection::succeeded(xcb_void_cookie_t request, Clock::time_point deadline) const
{
    const Answer answer = wait(request.sequence, deadline);
    return answer.arrived && !answer.error;
}

bool KeyConnection::synchronise(Clock::time_point deadline) const
{
    return reply<xcb_get_input_focus_reply_t>(xcb_get_input_focus(get()), deadline) != nullptr;
}

void KeyConnection::askForSignOfLife() const
{
    xcb_discard_reply(get(), xcb_get_input_focus(get()).sequence);
    xcb_flush(get());
}

KeyConnection::Answer KeyConnection::wait(unsigned sequence, Clock::time_point deadline) const
{
    xcb_flush(get());
    while (!broken()) {
        Answer answer;
        void* reply = nullptr;
        xcb_generic_error_t* error = nullptr;
        answer.arrived = xcb_poll_for_reply(get(), sequence, &reply, &error) != 0;
        answer.reply.reset(reply);
        answer.error.reset(error);
        if (answer.arrived)
            return answer;
        const auto left = std::chrono::ceil<std::chrono::milliseconds>(deadline - Clock::now());
        if (left <= std::chrono::milliseconds::zero())
            break;
        pollfd readable{xcb_get_file_descriptor(get()), POLLIN, 0};
        poll(&readable, 1, static_cast<int>(left.count()));
    }
    xcb_discard_reply(get(), sequence);
    return {};
}

} // namespace quillora::messages
