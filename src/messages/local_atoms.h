#pragma once

#include "messages/hot_key_ports.h"

#include <map>

namespace quillora::messages {

/// Atoms of this process alone: no other program needs to know the id of a hot key of ours.
class LocalAtoms : public Atoms {
  public:
    /// Fails for an empty text, one of more than 255 characters, and when all numbers are in use.
    std::uint16_t GlobalAddAtom(const std::string& text) override;
    void GlobalDeleteAtom(std::uint16_t atom) override;

  private:
    static constexpr std::uint16_t kFirst = 0xC000;
    /// Hot keys know the ids above it, -1 and -2, as keys of the desktop's own.
    static constexpr std::uint16_t kLast = 0xFFFD;

    struct Entry {
        std::string text;
        int count;
    };

    std::map<std::uint16_t, Entry> m_entries{};
    std::map<std::string, std::uint16_t> m_numbers{};
    /// Tried first, so that a number is not given again right after it was taken back.
    std::uint16_t m_next = kFirst;
};

} // namespace quillora::messages
