#pragma once

#include "session/open_command.h"
#include "session/recording_session.h"

#include <string_view>

namespace quillora::session {

/// The doors through which the presenter's commands come in. Routing only: whether a command fits the state
/// is asked in its operation, so every door has the same gates.
class CommandSurface {
  public:
    /// Both must outlive this object.
    CommandSurface(OpenCommand& open, RecordingSession& session) : m_open(open), m_session(session) {}

    /// A button of `main_TB`, by its key. A key without an operation does nothing. An operation that fails
    /// ends there, without a word. Never throws.
    void main_TB_ButtonClick(std::string_view key);

  private:
    OpenCommand& m_open;
    RecordingSession& m_session;
};

} // namespace quillora::session
