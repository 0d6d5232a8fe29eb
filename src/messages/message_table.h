#pragma once

#include <array>

namespace quillora::messages {

/// Most entries of a message table: few enough that a search through all of them costs nothing.
inline constexpr int MSG_ENTRIES = 32;
/// As a message it stands for all, and as a table's count it says that all apply.
inline constexpr int ALL_MESSAGES = -1;

/// Which messages of a window a hook wants to see. An entry that is freed holds 0 and keeps its place within
/// the count until another message takes it; like any entry it applies to the message of its value.
class MessageTable {
  public:
    enum class Added { yes, alreadyThere, overflow };

    bool applies(int message) const;

    /// A specific message added to a table of all messages makes it a table of that one.
    Added add(int message);
    /// False when it isn't there. A specific message is never found in a table of all messages.
    bool remove(int message);

    /// ALL_MESSAGES, or how many of the entries apply.
    int count() const { return m_count; }
    /// @p position from 1 to MSG_ENTRIES. Throws std::out_of_range.
    int entry(int position) const { return m_entries.at(static_cast<std::size_t>(position) - 1); }

  private:
    int m_count = 0;
    std::array<int, MSG_ENTRIES> m_entries{};
};

} // namespace quillora::messages
