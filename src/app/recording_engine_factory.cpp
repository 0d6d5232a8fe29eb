#include "app/recording_engine_factory.h"

#include "capture/platform/ffmpeg/asf_writer.h"
#include "capture/platform/pulse/pulse_sound_source.h"
#include "capture/platform/x11/x11_screen_source.h"
#include "capture/recording_engine.h"

namespace quillora::app {

RecordingEngineFactory::RecordingEngineFactory()
    : m_sound(std::make_shared<capture::SoundStandby>(std::make_unique<capture::PulseSoundSource>()))
{}

std::unique_ptr<capture::CaptureEngine> RecordingEngineFactory::create()
{
    using namespace capture;
    return std::make_unique<RecordingEngine>(CapturePorts{
        .openScreen = [] { return std::make_unique<X11ScreenSource>(); },
        .openSound = [sound = m_sound] { return sound->source(); },
        .openWriter = [](const MediaFormat& format) { return std::make_unique<AsfWriter>(format); },
    });
}

} // namespace quillora::app
