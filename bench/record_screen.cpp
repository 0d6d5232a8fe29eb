// record_screen OUT.asf LEFT TOP WIDTH HEIGHT SECONDS [FPS [no-cursor]]
//
// The capture engine alone, without the window: records a rectangle of the screen and the default sound
// input, as the recorder would at its default settings, and prints how many frames it took and how many came
// too late.

#include "capture/capture_settings.h"
#include "capture/platform/ffmpeg/asf_writer.h"
#include "capture/platform/pulse/pulse_sound_source.h"
#include "capture/platform/x11/x11_screen_source.h"
#include "capture/recording_engine.h"

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <thread>

using namespace quillora::capture;

int main(int argc, char** argv)
{
    if (argc < 7) {
        std::fputs("record_screen OUT.asf LEFT TOP WIDTH HEIGHT SECONDS [FPS [no-cursor]]\n", stderr);
        return 2;
    }
    const auto number = [&](int index, int otherwise) {
        return index < argc ? std::atoi(argv[index]) : otherwise;
    };
    try {
        RecordingEngine engine(
            {[] { return std::make_unique<X11ScreenSource>(); },
             [] { return std::make_unique<PulseSoundSource>(); },
             [](const MediaFormat& format) { return std::make_unique<AsfWriter>(format); }});
        engine.setFileName(argv[1]);
        engine.setCaptureCursor(argc <= 8);
        engine.setBitrate(700'000);
        engine.setLeft(number(2, 0));
        engine.setTop(number(3, 0));
        engine.setWidth(number(4, 0));
        engine.setHeight(number(5, 0));
        engine.setFrameRate(float(number(7, 24)));
        engine.setOutputWidth(kOutputWidth);
        engine.setOutputHeight(kOutputHeight);
        const std::chrono::duration<double> start = CaptureClock::now().time_since_epoch();
        engine.Start();
        std::this_thread::sleep_for(std::chrono::duration<double>(std::atof(argv[6])));
        engine.Stop();
        std::printf("started %.6f\n", start.count());
        std::printf("frames %lld dropped %lld\n", static_cast<long long>(engine.counts().frames),
                    static_cast<long long>(engine.counts().dropped));
    } catch (const std::exception& failure) {
        std::fprintf(stderr, "record_screen: %s\n", failure.what());
        return 1;
    }
}
