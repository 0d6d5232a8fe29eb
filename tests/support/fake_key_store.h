#pragma once

#include "panels/key_store.h"
#include "tests/support/call_log.h"

#include <map>
#include <string>
#include <vector>

namespace quillora::tests {

class FakeKeyStore : public panels::KeyStore {
  public:
    explicit FakeKeyStore(CallLog& callLog) : log(callLog) {}

    CallLog& log;
    /// Values by the name of their key, then by their own.
    std::map<std::string, std::map<std::string, Value>> keys{};
    std::uint32_t openedRoot = 0;
    std::uint32_t openedAccess = 0;

    long RegOpenKeyExA(std::uint32_t root, const std::string& name, std::uint32_t access,
                       Handle& key) override
    {
        log.add("keys.open " + name);
        openedRoot = root;
        openedAccess = access;
        if (!keys.contains(name))
            return 2;
        m_opened.push_back(name);
        key = m_opened.size();
        return 0;
    }
    long RegQueryValueExA(Handle key, const std::string& name, std::size_t capacity, Value& value) override
    {
        log.add("keys.query " + name);
        const auto& values = keys.at(m_opened.at(key - 1));
        const auto found = values.find(name);
        if (found == values.end())
            return 2;
        if (found->second.bytes.size() > capacity)
            return 234;
        value = found->second;
        return 0;
    }
    long RegCloseKey(Handle) override
    {
        log.add("keys.close");
        return 0;
    }

  private:
    std::vector<std::string> m_opened{};
};

} // namespace quillora::tests
