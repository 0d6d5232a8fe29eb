#pragma once

#include <cstdint>
#include <stdexcept>
#include <string>
#include <utility>

namespace quillora::messages {

/// What cRegHotKey raises.
class HotKeyError : public std::runtime_error {
  public:
    enum Number : std::uint32_t {
        unknownName = 0x80040419,
        atomFailed = 0x8004041A,
        nameTooLong = 0x8004041B,
        nameRegistered = 0x8004041C,
    };

    HotKeyError(Number number, std::string source, const std::string& text)
        : std::runtime_error(text), m_number(number), m_source(std::move(source))
    {}

    Number number() const { return m_number; }
    /// The program's name and the class's.
    const std::string& source() const { return m_source; }

  private:
    Number m_number;
    std::string m_source;
};

} // namespace quillora::messages
