#pragma once

#include "messages/hot_key_ports.h"
#include "messages/message_queue.h"
#include "messages/platform/x11/keyboard_map.h"

#include <optional>
#include <string>
#include <vector>

namespace quillora::messages {

/// Hot keys by grabs of an X server, in whatever state the locks of the keyboard are, and wherever a change
/// of keyboard moves the key to. Without a display, and where grabs have no say, registering fails and
/// nothing else happens. On the one thread of forms and logic; no call waits longer than a second.
class X11HotKeys : public HotKeys {
  public:
    /// Presses go to @p queue, which outlives this object. @p display is DISPLAY's syntax; without it that of
    /// the environment.
    explicit X11HotKeys(MessageQueue& queue, const std::optional<std::string>& display = std::nullopt);

    bool RegisterHotKey(WindowHandle window, std::int32_t id, std::uint32_t eModifiers,
                        std::uint32_t eKey) override;
    bool UnregisterHotKey(WindowHandle window, std::int32_t id) override;

    /// Where keys arrive: processEvents() is to be called when it becomes readable. -1 when none will.
    int descriptor() const;
    void processEvents();

  private:
    struct Combination {
        xcb_keycode_t code;
        std::uint16_t mask;
    };
    struct HotKey {
        WindowHandle window;
        std::int32_t id;
        std::uint32_t modifiers;
        std::uint32_t key;
        /// What is grabbed for it; empty when it couldn't be had after a change of keyboard.
        std::vector<Combination> grabbed{};
    };
    struct Release {
        xcb_keycode_t code = 0;
        xcb_timestamp_t time = 0;
    };

    std::vector<Combination> grab(const HotKey& key, const KeyboardMap& map,
                                  KeyConnection::Clock::time_point deadline) const;
    void ungrab(const std::vector<Combination>& combinations) const;
    void process(KeyConnection::Clock::time_point deadline);
    bool grabAnew(KeyConnection::Clock::time_point deadline);
    void readEvents();
    void take(const xcb_key_press_event_t& press);

    MessageQueue& m_queue;
    KeyConnection m_connection;
    std::vector<HotKey> m_keys{};
    Release m_lastRelease{};
    /// Since the keys were grabbed last.
    bool m_keyboardChanged = false;
};

} // namespace quillora::messages
