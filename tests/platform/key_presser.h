#pragma once

#include <cstdint>
#include <string>
#include <utility>
#include <vector>

struct xcb_connection_t;

namespace quillora::tests {

/// The keyboard of a display, pressed as fingers do it and rearranged as users do it. Keys are named by their
/// symbols, such as "r" and "Control_L". Each operation has been done by the server when it returns.
class KeyPresser {
  public:
    enum class Modifier { mod3 = 5, mod5 = 7 };
    static constexpr unsigned kLockMask = 2;
    static constexpr unsigned kControlMask = 4;

    explicit KeyPresser(const std::string& display);
    ~KeyPresser();
    KeyPresser(const KeyPresser&) = delete;
    KeyPresser& operator=(const KeyPresser&) = delete;

    /// Presses all of them in turn and lets them go in the other order.
    void press(const std::vector<std::string>& keys);
    void pressCodes(const std::vector<std::uint8_t>& codes);
    void down(const std::vector<std::string>& keys);
    void up(const std::vector<std::string>& keys);

    /// 0 for a symbol that the keyboard hasn't got.
    std::uint8_t codeOf(const std::string& key) const;
    /// The modifiers that are on.
    unsigned state() const;

    void swapSymbols(const std::string& one, const std::string& other);
    void moveNumLockTo(Modifier modifier);
    /// In the syntax of setxkbmap, such as "us(dvorak)".
    void useLayout(const std::string& layout);

    /// Holds a combination as another program does.
    void grab(const std::string& key, unsigned mask);
    void ungrabAll();

  private:
    void fake(std::uint8_t kind, std::uint8_t code);
    void finish() const;
    std::pair<std::uint8_t, std::vector<std::uint32_t>> symbolsOf(std::uint8_t code) const;

    std::string m_display;
    std::uint32_t m_root = 0;
    /// Connecting finds the root.
    xcb_connection_t* m_connection = nullptr;
};

/// A window of another program, with the focus.
class FocusedWindow {
  public:
    explicit FocusedWindow(const std::string& display);
    ~FocusedWindow();
    FocusedWindow(const FocusedWindow&) = delete;
    FocusedWindow& operator=(const FocusedWindow&) = delete;

    bool hasFocus() const;
    /// Presses of the key of this code that came to this window so far.
    int keyPresses(std::uint8_t code);

  private:
    xcb_connection_t* m_connection = nullptr;
    std::uint32_t m_window = 0;
    std::vector<std::uint8_t> m_codes{};
};

} // namespace quillora::tests
