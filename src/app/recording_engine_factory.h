#pragma once

#include "capture/capture_engine.h"

namespace quillora::app {

/// Makes capture engines that film the X screen and the default sound input into ASF files.
class RecordingEngineFactory : public capture::CaptureEngineFactory {
  public:
    std::unique_ptr<capture::CaptureEngine> create() override;
};

} // namespace quillora::app
