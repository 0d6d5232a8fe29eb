#include "messages/reg_hot_key.h"

#include "base/characters.h"
#include "base/rounding.h"
#include "base/skip_failures.h"

#include <algorithm>
#include <utility>

namespace quillora::messages {
namespace {

/// In characters, like the other lengths.
constexpr std::size_t kLongestName = 32;
/// An atom's text may have 255.
constexpr std::size_t kLongestAtomName = 254;
constexpr std::size_t kErrorTextBuffer = 256;

constexpr int kShow = 5;
constexpr Parameter kRestoreCommand = 61728;

/// The desktop's own ids for its keys that take a picture of the screen.
constexpr std::int32_t kWindowSnapshotId = -1;
constexpr std::int32_t kDesktopSnapshotId = -2;
constexpr std::uint32_t kPrintScreenKey = 44;

} // namespace

cRegHotKey::cRegHotKey(Ports ports) : m_ports(std::move(ports)) {}

cRegHotKey::~cRegHotKey()
{
    base::skipFailures([&] { Clear(); });
    // What Clear left behind would be held against the whole desktop, and the window would call an object
    // that is gone.
    const Entries left = m_entries;
    for (const HotKeyEntry& entry : left)
        base::skipFailures([&] { UnregisterKey(entry.name); });
    if (m_window != 0)
        detach();
}

void cRegHotKey::Attach(WindowHandle hwndA)
{
    Clear();
    if (hwndA == 0)
        return;
    m_window = hwndA;
    m_ports.hooks.attach(*this, m_window, kHotKeyMessage);
    m_ports.hooks.attach(*this, m_window, kDestroyMessage);
}

void cRegHotKey::Clear()
{
    const std::size_t countAtFirst = m_entries.size();
    for (std::size_t position = 0; position < countAtFirst; ++position) {
        const std::string name = m_entries.at(position).name;
        UnregisterKey(name);
    }
    if (m_window != 0)
        detach();
}

void cRegHotKey::detach()
{
    m_ports.hooks.detach(*this, m_window, kHotKeyMessage);
    m_ports.hooks.detach(*this, m_window, kDestroyMessage);
    m_window = 0;
}

void cRegHotKey::RegisterKey(const std::string& sName, std::uint32_t eKey, std::uint32_t eModifiers)
{
    if (base::characterCount(sName) > kLongestName)
        throw HotKeyError(HotKeyError::nameTooLong, source(), "Key Name too long (max 32 characters).");
    if (FindKey(sName) != m_entries.end())
        throw HotKeyError(HotKeyError::nameRegistered, source(),
                          "The Key Name '" + sName + "' is already registered.");

    const std::string wholeName =
        sName + "_" + m_ports.executableName + "_" + std::to_string(m_ports.GetTickCount());
    const std::string atomName(base::firstCharacters(wholeName, kLongestAtomName));
    const std::int32_t id = static_cast<std::int16_t>(m_ports.atoms.GlobalAddAtom(atomName));
    if (id == 0)
        throw HotKeyError(HotKeyError::atomFailed, source(), withSystemError("Failed to add GlobalAtom"));

    if (!m_ports.keys.RegisterHotKey(m_window, id, eModifiers, eKey)) {
        m_ports.atoms.GlobalDeleteAtom(static_cast<std::uint16_t>(id));
        return;
    }
    m_entries.push_back({sName, atomName, id, eKey, eModifiers});
}

void cRegHotKey::UnregisterKey(const std::string& sName)
{
    const auto entry = FindKey(sName);
    if (entry == m_entries.end())
        throw HotKeyError(HotKeyError::unknownName, source(),
                          "No hot key registered under the name '" + sName + "'");
    m_ports.keys.UnregisterHotKey(m_window, entry->id);
    m_ports.atoms.GlobalDeleteAtom(static_cast<std::uint16_t>(entry->id));
    m_entries.erase(entry);
}

void cRegHotKey::RestoreAndActivate(WindowHandle hwnd)
{
    if (!m_ports.windows.IsWindowVisible(hwnd))
        m_ports.windows.ShowWindow(hwnd, kShow);
    if (m_ports.windows.IsIconic(hwnd))
        m_ports.windows.SendMessage({hwnd, kSystemCommandMessage, kRestoreCommand, 0});
    m_ports.windows.SetForegroundWindow(hwnd);
}

void cRegHotKey::WindowProc(WindowHandle, int iMsg, Parameter wParam, Parameter lParam, Result&)
{
    if (iMsg == kDestroyMessage)
        Clear();
    else if (iMsg == kHotKeyMessage)
        raisePress(wParam, lParam);
}

void cRegHotKey::raisePress(Parameter wParam, Parameter lParam)
{
    // The receiver may replace this object, and itself with it.
    const auto receiver = HotKeyPress;
    if (!receiver)
        return;
    const auto id = static_cast<std::int32_t>(wParam);
    const auto entry = std::ranges::find(m_entries, id, &HotKeyEntry::id);
    if (id == kDesktopSnapshotId) {
        receiver("Desktop Snapshot", 0, kPrintScreenKey);
    } else if (id == kWindowSnapshotId) {
        receiver("Window Snapshot", kModifierShift, kPrintScreenKey);
    } else if (entry != m_entries.end()) {
        const HotKeyEntry pressed = *entry;
        receiver(pressed.name, pressed.modifiers, pressed.key);
    } else {
        const auto word = static_cast<std::int32_t>(lParam);
        receiver("Unknown HotKey", static_cast<std::uint32_t>(word) & 0xFFFF,
                 static_cast<std::uint32_t>(base::roundToInt(word / 65536.0)));
    }
}

cRegHotKey::Entries::iterator cRegHotKey::FindKey(const std::string& name)
{
    return std::ranges::find(m_entries, name, &HotKeyEntry::name);
}

std::string cRegHotKey::SystemErrorText(std::uint32_t number) const
{
    return std::string(base::firstCharacters(m_ports.errors.text(number), kErrorTextBuffer));
}

std::string cRegHotKey::withSystemError(std::string text) const
{
    const std::string system = SystemErrorText(m_ports.errors.lastError());
    if (!system.empty())
        text += " [" + system + "]";
    return text;
}

} // namespace quillora::messages
