#include "panels/system_information.h"

#include "base/text_number.h"

#include <charconv>
#include <cstdint>
#include <stdexcept>

namespace quillora::panels {

namespace {

constexpr const char* kToolKey = "SOFTWARE\\Microsoft\\Shared Tools\\MSINFO";
constexpr const char* kToolValue = "PATH";
constexpr const char* kLocationKey = "SOFTWARE\\Microsoft\\Shared Tools Location";
constexpr const char* kLocationValue = "MSINFO";
constexpr const char* kToolInLocation = "\\MSINFO32.EXE";
constexpr std::size_t kLongestValue = 1024;

std::string hexadecimal(unsigned char byte)
{
    char digits[2];
    const auto end = std::to_chars(digits, digits + sizeof digits, unsigned(byte), 16).ptr;
    return {digits, end};
}

/// `&h` and @p digits as a number, in decimal.
std::string numberFromHexadecimal(const std::string& digits)
{
    std::uint32_t number = 0;
    const auto end = digits.data() + digits.size();
    const auto parsed = std::from_chars(digits.data(), end, number, 16);
    if (parsed.ec != std::errc() || parsed.ptr != end)
        throw std::invalid_argument("not a hexadecimal number: " + digits);
    return base::decimalText(number);
}

std::string decoded(const KeyStore::Value& value, const std::string& KeyVal)
{
    std::string bytes = value.bytes;
    if (bytes.ends_with('\0'))
        bytes.pop_back();
    if (value.type == kTextValue)
        return bytes;
    if (value.type != kNumberValue)
        return KeyVal;
    std::string digits = KeyVal;
    for (auto byte = bytes.rbegin(); byte != bytes.rend(); ++byte)
        digits += hexadecimal(static_cast<unsigned char>(*byte));
    return numberFromHexadecimal(digits);
}

} // namespace

void SystemInformation::StartSysInfo()
{
    std::string path;
    if (GetKeyValue(HKEY_LOCAL_MACHINE, kToolKey, kToolValue, path)) {
        m_ports.programs.run(path);
        return;
    }
    if (GetKeyValue(HKEY_LOCAL_MACHINE, kLocationKey, kLocationValue, path) &&
        m_ports.programs.fileExists(path + kToolInLocation)) {
        m_ports.programs.run(path + kToolInLocation);
        return;
    }
    m_ports.boxes.show({.text = "System Information Is Unavailable At This Time"});
}

bool SystemInformation::GetKeyValue(std::uint32_t KeyRoot, const std::string& KeyName,
                                    const std::string& SubKeyRef, std::string& KeyVal)
{
    KeyStore::Handle key = 0;
    KeyStore::Value value;
    bool found = false;
    try {
        found = m_ports.keys.RegOpenKeyExA(KeyRoot, KeyName, kAllAccess, key) == 0 &&
                m_ports.keys.RegQueryValueExA(key, SubKeyRef, kLongestValue, value) == 0;
        if (found)
            KeyVal = decoded(value, KeyVal);
    } catch (const std::exception&) {
        found = false;
    }
    if (!found)
        KeyVal.clear();
    m_ports.keys.RegCloseKey(key);
    return found;
}

} // namespace quillora::panels
