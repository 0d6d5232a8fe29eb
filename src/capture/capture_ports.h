#pragma once

#include "capture/media_writer.h"
#include "capture/screen_source.h"
#include "capture/sound_source.h"

#include <functional>
#include <memory>

namespace quillora::capture {

/// How a recording gets what it works with. Each recording makes its own, on the threads that will use them:
/// one that hangs in a display or a disk can then be left behind without harm to the next. All may throw.
struct CapturePorts {
    std::function<std::unique_ptr<ScreenSource>()> openScreen{};
    std::function<std::unique_ptr<SoundSource>()> openSound{};
    std::function<std::unique_ptr<MediaWriter>(const MediaFormat&)> openWriter{};
};

} // namespace quillora::capture
