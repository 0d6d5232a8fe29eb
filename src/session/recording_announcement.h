#pragma once

namespace quillora::session {

/// Is told that a recording is near, some seconds ahead: what takes time to open can be opened meanwhile.
class RecordingAnnouncement {
  public:
    virtual ~RecordingAnnouncement() = default;
    /// Returns at once.
    virtual void recordingIsNear() = 0;
};

} // namespace quillora::session
