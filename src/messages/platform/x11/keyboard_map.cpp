#include "messages/platform/x11/keyboard_map.h"

#include "messages/hot_key_ports.h"

#include <algorithm>
#include <string_view>

namespace quillora::messages {
namespace {

constexpr xcb_keysym_t kNumLock = 0xFF7F;
constexpr xcb_keysym_t kAltLeft = 0xFFE9;
constexpr xcb_keysym_t kPrint = 0xFF61;
constexpr xcb_keysym_t kF1 = 0xFFBE;

constexpr std::uint32_t kVirtualPrintScreen = 44;
constexpr std::uint32_t kVirtualF1 = 0x70;
constexpr std::uint32_t kVirtualF24 = 0x87;

bool isLetter(std::uint32_t key) { return key >= 'A' && key <= 'Z'; }
bool isDigit(std::uint32_t key) { return key >= '0' && key <= '9'; }

/// Symbols of the Latin letters, like those of the digits, are their ASCII codes.
xcb_keysym_t symbolOf(std::uint32_t virtualKey)
{
    if (isLetter(virtualKey))
        return virtualKey - 'A' + 'a';
    if (isDigit(virtualKey))
        return virtualKey;
    if (virtualKey >= kVirtualF1 && virtualKey <= kVirtualF24)
        return virtualKey - kVirtualF1 + kF1;
    return virtualKey == kVirtualPrintScreen ? kPrint : XCB_NO_SYMBOL;
}

/// A row of keys of the usual keyboard, and the code of its first key as Linux numbers them for X servers.
struct Row {
    std::string_view keys;
    xcb_keycode_t first;
};
constexpr Row kRows[] = {{"1234567890", 10}, {"QWERTYUIOP", 24}, {"ASDFGHJKL", 38}, {"ZXCVBNM", 52}};

/// Where the key lies that would bear the letter on a keyboard with Latin letters.
std::vector<xcb_keycode_t> usualPlaceOf(std::uint32_t virtualKey)
{
    for (const Row& row : kRows)
        if (const auto column = row.keys.find(static_cast<char>(virtualKey));
            column != std::string_view::npos)
            return {static_cast<xcb_keycode_t>(row.first + column)};
    return {};
}

} // namespace

KeyboardMap::KeyboardMap(const KeyConnection& connection, KeyConnection::Clock::time_point deadline)
{
    const xcb_setup_t& setup = *xcb_get_setup(connection.get());
    const auto count = static_cast<std::uint8_t>(setup.max_keycode - setup.min_keycode + 1);
    const auto symbolsRequest = xcb_get_keyboard_mapping(connection.get(), setup.min_keycode, count);
    const auto modifiersRequest = xcb_get_modifier_mapping(connection.get());
    const auto symbols = connection.reply<xcb_get_keyboard_mapping_reply_t>(symbolsRequest, deadline);
    const auto modifiers = connection.reply<xcb_get_modifier_mapping_reply_t>(modifiersRequest, deadline);
    if (!symbols || !modifiers)
        return;
    m_firstCode = setup.min_keycode;
    m_symbolsPerCode = symbols->keysyms_per_keycode;
    const xcb_keysym_t* firstSymbol = xcb_get_keyboard_mapping_keysyms(symbols.get());
    m_symbols.assign(firstSymbol, firstSymbol + xcb_get_keyboard_mapping_keysyms_length(symbols.get()));
    m_codesPerModifier = modifiers->keycodes_per_modifier;
    const xcb_keycode_t* firstModifier = xcb_get_modifier_mapping_keycodes(modifiers.get());
    m_modifiers.assign(firstModifier,
                       firstModifier + xcb_get_modifier_mapping_keycodes_length(modifiers.get()));
}

std::vector<xcb_keycode_t> KeyboardMap::codesOf(std::uint32_t virtualKey) const
{
    const xcb_keysym_t symbol = symbolOf(virtualKey);
    if (symbol == XCB_NO_SYMBOL || m_symbols.empty())
        return {};
    const auto codes = codesWith(symbol);
    return codes.empty() ? usualPlaceOf(virtualKey) : codes;
}

std::uint16_t KeyboardMap::maskOf(std::uint32_t modifiers) const
{
    unsigned mask = 0;
    if (modifiers & kModifierControl)
        mask |= XCB_MOD_MASK_CONTROL;
    if (modifiers & kModifierShift)
        mask |= XCB_MOD_MASK_SHIFT;
    if (modifiers & kModifierAlt) {
        const std::uint16_t alt = modifierOf(kAltLeft);
        mask |= alt != 0 ? alt : std::uint16_t{XCB_MOD_MASK_1};
    }
    return static_cast<std::uint16_t>(mask);
}

std::vector<std::uint16_t> KeyboardMap::lockStates() const
{
    const std::uint16_t numLock = modifierOf(kNumLock);
    std::vector<std::uint16_t> states{0, XCB_MOD_MASK_LOCK};
    if (numLock != 0)
        states.insert(states.end(), {numLock, static_cast<std::uint16_t>(numLock | XCB_MOD_MASK_LOCK)});
    return states;
}

bool KeyboardMap::hasSymbol(xcb_keycode_t code, xcb_keysym_t symbol) const
{
    const auto first = m_symbols.begin() + (code - m_firstCode) * m_symbolsPerCode;
    return std::find(first, first + m_symbolsPerCode, symbol) != first + m_symbolsPerCode;
}

std::vector<xcb_keycode_t> KeyboardMap::codesWith(xcb_keysym_t symbol) const
{
    std::vector<xcb_keycode_t> codes;
    const int count = m_symbolsPerCode == 0 ? 0 : static_cast<int>(m_symbols.size()) / m_symbolsPerCode;
    for (int code = m_firstCode; code < m_firstCode + count; ++code)
        if (hasSymbol(static_cast<xcb_keycode_t>(code), symbol))
            codes.push_back(static_cast<xcb_keycode_t>(code));
    return codes;
}

/// The bit of the modifier that a key of this symbol stands for; 0 when there is none.
std::uint16_t KeyboardMap::modifierOf(xcb_keysym_t symbol) const
{
    const auto codes = codesWith(symbol);
    for (std::size_t index = 0; index < m_modifiers.size(); ++index)
        if (m_modifiers[index] != 0 && std::ranges::find(codes, m_modifiers[index]) != codes.end())
            return static_cast<std::uint16_t>(1U << (index / static_cast<std::size_t>(m_codesPerModifier)));
    return 0;
}

} // namespace quillora::messages
