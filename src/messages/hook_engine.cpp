#include "messages/hook_engine.h"

#include <algorithm>
#include <cerrno>
#include <new>
#include <sstream>
#include <utility>

namespace quillora::messages {
namespace {

std::string keyOf(WindowHandle window) { return "h" + std::to_string(window); }

std::string hexadecimal(int number)
{
    std::ostringstream text;
    text << std::hex << std::uppercase << number;
    return text.str();
}

} // namespace

HookEngine::HookEngine(const Ports& ports, std::shared_ptr<const HookOwner> owner)
    : m_ports(ports), m_owner(std::move(owner))
{}

bool HookEngine::sc_Subclass(WindowHandle window, Parameter userParam, int callbackOrdinal,
                             std::shared_ptr<const HookOwner> callbackObject, HostSafety hostSafety)
{
    if (!m_ports.windows.isWindow(window))
        return refuse("Invalid window handle");
    if (!m_ports.windows.belongsToThisProcess(window))
        return refuse("Window handle belongs to another process");
    const auto callback = zFindCallback(callbackObject ? callbackObject : m_owner, callbackOrdinal);
    if (!callback)
        return refuse("Callback method not found");
    if (!m_hooks)
        m_hooks.emplace();
    const auto block = makeBlock(window, userParam, hostSafety);
    if (!block)
        return refuse("VirtualAlloc failed, error: " + std::to_string(m_ports.errors.lastError()));
    if (isSubclassed(window))
        return refuse("Window handle is already subclassed");
    m_hooks->push_back({keyOf(window), block});
    if (!block->install(callback))
        return refuse("SetWindowLong failed, error #" + std::to_string(m_ports.errors.lastError()));
    return true;
}

void HookEngine::sc_UnSubclass(WindowHandle window)
{
    if (!m_hooks) {
        zReport("sc_UnSubclass", "Window handle isn't subclassed");
        return;
    }
    if (const auto block = zMap_hWnd(window)) {
        block->shutDown();
        zDelMsg(*block, ALL_MESSAGES, &HookBlock::before);
        zDelMsg(*block, ALL_MESSAGES, &HookBlock::after);
    }
    std::erase_if(*m_hooks, [&](const Hook& hook) { return hook.key == keyOf(window); });
}

void HookEngine::sc_RemoveAll()
{
    if (!m_hooks)
        return;
    for (std::size_t left = m_hooks->size(); left > 0; --left)
        if (const auto block = (*m_hooks)[left - 1].block.lock())
            sc_UnSubclass(block->window());
    m_hooks.reset();
}

void HookEngine::sc_WatchMsg(WindowHandle window, int message, MessageWhen when)
{
    const auto block = zMap_hWnd(window);
    if (block && when & MSG_BEFORE)
        zAddMsg(*block, message, &HookBlock::before);
    if (block && when & MSG_AFTER)
        zAddMsg(*block, message, &HookBlock::after);
}

void HookEngine::sc_UnwatchMsg(WindowHandle window, int message, MessageWhen when)
{
    const auto block = zMap_hWnd(window);
    if (block && when & MSG_BEFORE)
        zDelMsg(*block, message, &HookBlock::before);
    if (block && when & MSG_AFTER)
        zDelMsg(*block, message, &HookBlock::after);
}

Result HookEngine::sc_CallPrevious(WindowHandle window, int message, Parameter wParam, Parameter lParam)
{
    const auto block = zMap_hWnd(window);
    return block ? block->callPrevious({window, message, wParam, lParam}) : 0;
}

Parameter HookEngine::sc_UserParam(WindowHandle window)
{
    const auto block = zMap_hWnd(window);
    return block ? block->userParam() : 0;
}

void HookEngine::sc_UserParam(WindowHandle window, Parameter value)
{
    if (const auto block = zMap_hWnd(window))
        block->setUserParam(value);
}

void HookEngine::zReport(const std::string& routine, const std::string& message)
{
    const std::string place = m_owner->className + "." + routine;
    m_ports.log.error(place + ": " + message);
    m_ports.boxes.show({.text = message + ".", .title = "Error in " + place, .icon = base::BoxIcon::warning});
}

/// The window's hook, or nothing: with a report where there never was one, silently where it is gone.
std::shared_ptr<HookBlock> HookEngine::zMap_hWnd(WindowHandle window)
{
    if (!m_hooks) {
        zReport("zMap_hWnd", "Subclassing hasn't been started");
        return nullptr;
    }
    const auto found = std::ranges::find(*m_hooks, keyOf(window), &Hook::key);
    if (found == m_hooks->end()) {
        zReport("zMap_hWnd", "Window handle isn't subclassed");
        return nullptr;
    }
    return found->block.lock();
}

std::shared_ptr<HookBlock> HookEngine::makeBlock(WindowHandle window, Parameter userParam,
                                                 HostSafety hostSafety)
{
    try {
        return std::allocate_shared<HookBlock>(
            std::pmr::polymorphic_allocator<HookBlock>(&m_ports.memory), m_ports.windows, window, userParam,
            hostSafety == HostSafety::on ? m_ports.hostProbe : HostProbe{});
    } catch (const std::bad_alloc&) {
        errno = ENOMEM;
        return nullptr;
    }
}

std::shared_ptr<const HookCallback> HookEngine::zFindCallback(const std::shared_ptr<const HookOwner>& object,
                                                              int ordinal)
{
    const auto count = static_cast<int>(object->methods.size());
    if (ordinal < 1 || ordinal > count)
        return nullptr;
    return {object, &object->methods[static_cast<std::size_t>(count - ordinal)]};
}

bool HookEngine::isSubclassed(WindowHandle window) const
{
    return std::ranges::find(*m_hooks, keyOf(window), &Hook::key) != m_hooks->end();
}

bool HookEngine::refuse(const std::string& message)
{
    zReport("sc_Subclass", message);
    return false;
}

void HookEngine::zAddMsg(HookBlock& block, int message, Table table)
{
    if ((block.*table)().add(message) == MessageTable::Added::overflow)
        zReport("zAddMsg", "Message table overflow. Either increase the value of Const MSG_ENTRIES or use "
                           "ALL_MESSAGES instead of specific message values");
}

void HookEngine::zDelMsg(HookBlock& block, int message, Table table)
{
    if (!(block.*table)().remove(message))
        zReport("zDelMsg", "Message &H" + hexadecimal(message) + " not found in table");
}

} // namespace quillora::messages
