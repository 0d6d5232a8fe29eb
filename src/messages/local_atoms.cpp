#include "messages/local_atoms.h"

#include "base/characters.h"

#include <cerrno>

namespace quillora::messages {
namespace {

constexpr std::size_t kLongest = 255;

} // namespace

std::uint16_t LocalAtoms::GlobalAddAtom(const std::string& text)
{
    if (text.empty() || base::characterCount(text) > kLongest) {
        errno = EINVAL;
        return 0;
    }
    if (const auto known = m_numbers.find(text); known != m_numbers.end()) {
        ++m_entries.at(known->second).count;
        return known->second;
    }
    for (int tried = kFirst; tried <= kLast; ++tried) {
        const std::uint16_t atom = m_next;
        m_next = atom == kLast ? kFirst : static_cast<std::uint16_t>(atom + 1);
        if (m_entries.try_emplace(atom, Entry{text, 1}).second) {
            m_numbers[text] = atom;
            return atom;
        }
    }
    errno = ENOMEM;
    return 0;
}

void LocalAtoms::GlobalDeleteAtom(std::uint16_t atom)
{
    const auto found = m_entries.find(atom);
    if (found == m_entries.end() || --found->second.count > 0)
        return;
    m_numbers.erase(found->second.text);
    m_entries.erase(found);
}

} // namespace quillora::messages
