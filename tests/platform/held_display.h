#pragma once

#include <atomic>
#include <cstdint>
#include <string>
#include <thread>

namespace quillora::tests {

/// A way to a display, for one connection, on which requests can be held up: the server doesn't answer them,
/// as when it has much else to do.
class HeldDisplay {
  public:
    /// @p server is the display's number.
    explicit HeldDisplay(int server);
    ~HeldDisplay();
    HeldDisplay(const HeldDisplay&) = delete;
    HeldDisplay& operator=(const HeldDisplay&) = delete;

    /// As DISPLAY names it.
    std::string display() const { return ":" + std::to_string(m_number); }

    /// From the first request of this kind on nothing passes, until letGo(). Of requests that are sent
    /// together only the first one counts.
    void holdFrom(std::uint8_t request) { m_held = request; }
    void letGo() { m_held = kNone; }

  private:
    static constexpr int kNone = -1;

    void run(const std::stop_token& stop, int server) const;
    void pass(const std::stop_token& stop, int client, int server) const;

    int m_number;
    int m_listener;
    std::atomic<int> m_held{kNone};
    /// Last: it uses all of the above.
    std::jthread m_thread;
};

} // namespace quillora::tests
