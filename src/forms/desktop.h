#pragma once

#include "panels/default_application.h"
#include "panels/key_store.h"
#include "panels/system_information.h"

namespace quillora::forms {

/// What the presenter's desktop opens documents and addresses with. Programs that it starts belong to nobody
/// here: they are neither waited for nor left behind as zombies.
class DesktopApplications : public panels::DefaultApplication {
  public:
    /// A document stands for another one beside it where a table of roles says so: see docs/adr.
    void open(const std::string& target) override;
};

/// The programs of the desktop, looked up where commands are.
class DesktopPrograms : public panels::ProgramStarter {
  public:
    bool fileExists(const std::filesystem::path& file) override;
    void run(const std::filesystem::path& program) override;
};

/// There is no tree of settings here; what a caller may ask of it is answered from what the desktop has: the
/// path of its system information tool.
class DesktopSettings : public panels::KeyStore {
  public:
    long RegOpenKeyExA(std::uint32_t root, const std::string& name, std::uint32_t access,
                       Handle& key) override;
    long RegQueryValueExA(Handle key, const std::string& name, std::size_t capacity, Value& value) override;
    long RegCloseKey(Handle key) override;
};

} // namespace quillora::forms
