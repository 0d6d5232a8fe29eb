#pragma once

#include "base/dialogs.h"
#include "panels/key_store.h"

#include <filesystem>
#include <string>

namespace quillora::panels {

/// Starting a program of the system, and what has to be known of it before.
class ProgramStarter {
  public:
    virtual ~ProgramStarter() = default;
    virtual bool fileExists(const std::filesystem::path& file) = 0;
    /// With a normal window; not waited for. Throws std::runtime_error where it can't be started.
    virtual void run(const std::filesystem::path& program) = 0;
};

/// The launcher of the operating system's own information tool. No control leads to it; it is there for
/// whoever calls it. On the one thread of forms and logic.
class SystemInformation {
  public:
    struct Ports {
        KeyStore& keys;
        ProgramStarter& programs;
        base::MessageBoxes& boxes;
    };
    /// What the ports refer to must outlive this object.
    explicit SystemInformation(const Ports& ports) : m_ports(ports) {}

    /// Starts the tool, or says in a box that there is none. Throws what the starter throws of one that is
    /// there and can't be started.
    void StartSysInfo();

    /// Reads the value @p SubKeyRef of the key @p KeyName. A text comes as it is; the digits of a number are
    /// put together from its highest byte on, each byte in as few hexadecimal digits as it has, behind
    /// whatever @p KeyVal held. A value of another type leaves @p KeyVal alone. False, with an empty
    /// @p KeyVal, where there is no such key or value.
    bool GetKeyValue(std::uint32_t KeyRoot, const std::string& KeyName, const std::string& SubKeyRef,
                     std::string& KeyVal);

  private:
    Ports m_ports;
};

} // namespace quillora::panels
