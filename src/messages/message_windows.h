#pragma once

#include "messages/message_queue.h"
#include "messages/windows.h"

#include <map>
#include <string>

namespace quillora::messages {

/// The program's own windows for messages: they have no picture, only a procedure, and stand for what
/// listens - the main form, a sound device. On the one thread of forms and logic, but for post().
class MessageWindows : public Windows {
  public:
    /// @p queue outlives this object, and hands what is posted to dispatch().
    explicit MessageWindows(MessageQueue& queue) : m_queue(queue) {}

    /// A window whose procedure answers 0 to every message.
    WindowHandle create(std::string className, std::string title);
    /// Sends the window its destroy message and lets it go. False, and nothing else, for no window, and for
    /// one that is being destroyed.
    bool destroy(WindowHandle window);

    /// Runs the window's procedure now. 0 for no window.
    Result send(const WindowMessage& message);
    /// Runs it later, from the queue. May be called from any thread.
    void post(const WindowMessage& message) { m_queue.post(message); }
    /// A message from the queue. One for a window that has gone meanwhile is dropped.
    void dispatch(const WindowMessage& message) { send(message); }

    int count() const { return static_cast<int>(m_windows.size()); }
    /// Empty for no window.
    std::string titleOf(WindowHandle window) const;
    std::string classNameOf(WindowHandle window) const;

    bool isWindow(WindowHandle window) const override { return m_windows.contains(window); }
    /// All windows here are this process's.
    bool belongsToThisProcess(WindowHandle window) const override { return isWindow(window); }
    std::shared_ptr<WindowProcedure> exchangeProcedure(WindowHandle window,
                                                       std::shared_ptr<WindowProcedure> procedure) override;

  private:
    struct Window {
        std::string className;
        std::string title;
        std::shared_ptr<WindowProcedure> procedure;
        bool ending = false;
    };

    MessageQueue& m_queue;
    std::map<WindowHandle, Window> m_windows{};
    /// Never used twice, so that a message that comes late finds no stranger.
    WindowHandle m_last = 0;
};

} // namespace quillora::messages
