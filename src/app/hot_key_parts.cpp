#include "app/hot_key_parts.h"

#include "base/skip_failures.h"

#include <QCoreApplication>
#include <QFileInfo>

#include <chrono>

namespace quillora::app {
namespace {

constexpr std::uint32_t kKeyR = 82;

std::uint32_t tickCount()
{
    using namespace std::chrono;
    const auto sinceStart = steady_clock::now().time_since_epoch();
    return static_cast<std::uint32_t>(duration_cast<milliseconds>(sinceStart).count());
}

std::string executableName()
{
    return QFileInfo(QCoreApplication::applicationFilePath()).completeBaseName().toStdString();
}

} // namespace

HotKeyParts::HotKeyParts(MessageParts& messages, forms::Vantry_frm& window)
    : m_messages(messages),
      m_window(window),
      m_hooks(messages.hooks()),
      m_keys(messages.queue()),
      m_mainWindow(messages.windows().create("Vantry_frm", "Quillora Recorder"))
{
    if (m_keys.descriptor() < 0)
        return;
    m_notifier.emplace(m_keys.descriptor(), QSocketNotifier::Read);
    QObject::connect(&*m_notifier, &QSocketNotifier::activated, [this] { takeKeys(); });
}

HotKeyParts::~HotKeyParts() { m_messages.windows().destroy(m_mainWindow); }

void HotKeyParts::ActivateHotKey()
{
    m_cHotKey.reset();
    m_cHotKey = std::make_unique<messages::cRegHotKey>(
        messages::cRegHotKey::Ports{.hooks = m_hooks,
                                    .keys = m_keys,
                                    .atoms = m_atoms,
                                    .errors = m_messages.errors(),
                                    .windows = *this,
                                    .GetTickCount = tickCount,
                                    .executableName = executableName()});
    m_cHotKey->HotKeyPress = [this](auto&&...) { m_cHotKey_HotKeyPress(); };
    m_cHotKey->Attach(m_mainWindow);
    m_cHotKey->RegisterKey("Activate", kKeyR, messages::kModifierControl);
}

void HotKeyParts::m_cHotKey_HotKeyPress()
{
    if (ReturnWindow)
        base::skipFailures([&] { ReturnWindow(); });
}

void HotKeyParts::takeKeys()
{
    m_keys.processEvents();
    // The socket of a display that is gone stays readable for ever.
    if (m_keys.descriptor() < 0)
        m_notifier->setEnabled(false);
}

bool HotKeyParts::IsWindowVisible(messages::WindowHandle) { return m_window.isVisible(); }

bool HotKeyParts::IsIconic(messages::WindowHandle) { return m_window.isMinimized(); }

void HotKeyParts::ShowWindow(messages::WindowHandle, int) { m_window.setFormVisible(true); }

void HotKeyParts::SendMessage(const messages::WindowMessage& message)
{
    // The only command that is sent to the form is to come back from being minimised.
    if (message.iMsg == messages::kSystemCommandMessage)
        m_window.showNormal();
}

void HotKeyParts::SetForegroundWindow(messages::WindowHandle)
{
    m_window.raise();
    m_window.activateWindow();
}

} // namespace quillora::app
