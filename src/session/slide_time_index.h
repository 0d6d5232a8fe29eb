#pragma once

#include "session/session_fields.h"
#include "session/workspace.h"

#include <string>

namespace quillora::session {

/// The times at which slides came onto the stage, from which a player later turns the slides in step with the
/// video. Gathered as finished text during a recording, and written as "slidetime.xml" once at its end; this
/// system never reads the file back.
class SlideTimeIndex {
  public:
    /// Both must outlive this object.
    SlideTimeIndex(const SessionFields& fields, const Workspace& workspace);

    /// The entries so far, in the order of the changes. Nothing but clear() empties them.
    const std::string& slideEntries() const { return m_slideEntries; }
    void clear() { m_slideEntries.clear(); }

    /// Appends the slide `currentSlide` at the time `runningTime`, while recording or paused. Throws
    /// std::runtime_error before the clock's first tick, when there is no time to note.
    void updateXMLSlideTime();
    /// Writes the file, which always begins with slide 1 at time zero. Throws std::runtime_error when it
    /// can't.
    void XMLSlideFinish();

  private:
    const SessionFields& m_fields;
    const Workspace& m_workspace;
    std::string m_slideEntries{};
};

} // namespace quillora::session
