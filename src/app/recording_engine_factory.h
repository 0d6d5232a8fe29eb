#pragma once

#include "capture/capture_engine.h"
#include "capture/sound_standby.h"
#include "session/recording_announcement.h"

namespace quillora::app {

/// Makes capture engines that film the X screen and the default sound input into ASF files.
/// They share one sound input, which is opened when a recording is announced.
class RecordingEngineFactory : public capture::CaptureEngineFactory, public session::RecordingAnnouncement {
  public:
    RecordingEngineFactory();

    std::unique_ptr<capture::CaptureEngine> create() override;
    void recordingIsNear() override { m_sound->listen(); }

  private:
    std::shared_ptr<capture::SoundStandby> m_sound;
};

} // namespace quillora::app
