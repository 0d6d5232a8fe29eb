#pragma once

#include "messages/platform/x11/key_connection.h"

#include <cstdint>
#include <vector>

namespace quillora::messages {

/// Where the keyboard has its keys and modifiers at the moment.
class KeyboardMap {
  public:
    /// Asks the server. Knows no key when that doesn't answer by @p deadline.
    KeyboardMap(const KeyConnection& connection, KeyConnection::Clock::time_point deadline);

    bool known() const { return !m_symbols.empty(); }
    /// The key codes of a virtual key; empty for one that this keyboard hasn't got.
    std::vector<xcb_keycode_t> codesOf(std::uint32_t virtualKey) const;
    /// The modifier bits of a combination of kModifierAlt and its like; 0 stands for those that aren't there.
    std::uint16_t maskOf(std::uint32_t modifiers) const;
    /// All states that the locks, which a combination has nothing to do with, can be in.
    std::vector<std::uint16_t> lockStates() const;

  private:
    bool hasSymbol(xcb_keycode_t code, xcb_keysym_t symbol) const;
    std::vector<xcb_keycode_t> codesWith(xcb_keysym_t symbol) const;
    std::uint16_t modifierOf(xcb_keysym_t symbol) const;

    xcb_keycode_t m_firstCode = 0;
    int m_symbolsPerCode = 0;
    std::vector<xcb_keysym_t> m_symbols{};
    int m_codesPerModifier = 0;
    std::vector<xcb_keycode_t> m_modifiers{};
};

} // namespace quillora::messages
