#pragma once

#include "session/recording_announcement.h"

namespace quillora::tests {

class FakeRecordingAnnouncement : public session::RecordingAnnouncement {
  public:
    int times = 0;

    void recordingIsNear() override { ++times; }
};

} // namespace quillora::tests
