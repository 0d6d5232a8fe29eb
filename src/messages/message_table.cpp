#include "messages/message_table.h"

#include <algorithm>
#include <span>

namespace quillora::messages {

bool MessageTable::applies(int message) const
{
    if (m_count == ALL_MESSAGES)
        return true;
    const auto used = std::span(m_entries).first(static_cast<std::size_t>(m_count));
    return std::ranges::find(used, message) != used.end();
}

MessageTable::Added MessageTable::add(int message)
{
    if (message == ALL_MESSAGES) {
        m_count = ALL_MESSAGES;
        return Added::yes;
    }
    if (m_count >= MSG_ENTRIES)
        return Added::overflow;
    const int used = std::max(m_count, 0);
    for (int index = 0; index < used; ++index) {
        int& entry = m_entries[static_cast<std::size_t>(index)];
        if (entry == message)
            return Added::alreadyThere;
        if (entry == 0) {
            entry = message;
            return Added::yes;
        }
    }
    m_entries[static_cast<std::size_t>(used)] = message;
    m_count = used + 1;
    return Added::yes;
}

bool MessageTable::remove(int message)
{
    if (message == ALL_MESSAGES) {
        m_count = 0;
        return true;
    }
    for (int index = 0; index < m_count; ++index) {
        int& entry = m_entries[static_cast<std::size_t>(index)];
        if (entry == message) {
            entry = 0;
            return true;
        }
    }
    return false;
}

} // namespace quillora::messages
