#pragma once

#include "messages/message_queue.h"
#include "messages/message_windows.h"

#include <deque>
#include <mutex>

namespace quillora::tests {

/// Keeps what is posted until a test lets it run.
class PlainMessageQueue : public messages::MessageQueue {
  public:
    void post(const messages::WindowMessage& message) override
    {
        const std::lock_guard lock(m_mutex);
        m_posted.push_back(message);
    }

    std::deque<messages::WindowMessage> posted() const
    {
        const std::lock_guard lock(m_mutex);
        return m_posted;
    }

    /// Also what is posted meanwhile. Returns how many messages there were.
    int run(messages::MessageWindows& windows)
    {
        int count = 0;
        for (; !posted().empty(); ++count)
            windows.dispatch(takeFirst());
        return count;
    }

  private:
    messages::WindowMessage takeFirst()
    {
        const std::lock_guard lock(m_mutex);
        const messages::WindowMessage first = m_posted.front();
        m_posted.pop_front();
        return first;
    }

    mutable std::mutex m_mutex{};
    std::deque<messages::WindowMessage> m_posted{};
};

} // namespace quillora::tests
