#pragma once

#include "capture/capture_ports.h"

#include <algorithm>
#include <atomic>
#include <chrono>
#include <condition_variable>
#include <functional>
#include <mutex>
#include <stdexcept>
#include <thread>
#include <vector>

namespace quillora::tests {

/// A screen of 100 by 80 pixels, all of one grey that the test sets, with a pointer that the test moves.
struct FakeScreen {
    std::atomic<int> grey{0};
    std::atomic<int> pointerX{50};
    std::atomic<int> pointerY{40};
    std::atomic<bool> gone{false};
    /// How long each grab takes.
    std::atomic<int> grabMilliseconds{0};
    std::atomic<int> grabs{0};
    std::atomic<int> opened{0};

    std::mutex mutex{};
    capture::PixelRectangle lastRegion{};
    capture::PointerDrawing lastPointer{};
    capture::CaptureClock::time_point firstGrab{};

    capture::PixelRectangle regionSeen()
    {
        const std::lock_guard lock(mutex);
        return lastRegion;
    }
    capture::PointerDrawing pointerSeen()
    {
        const std::lock_guard lock(mutex);
        return lastPointer;
    }
};

class FakeScreenSource : public capture::ScreenSource {
  public:
    explicit FakeScreenSource(FakeScreen& screen) : m_screen(screen)
    {
        ++m_screen.opened;
        if (m_screen.gone)
            throw std::runtime_error("no display");
    }

    Grab grab(const capture::PixelRectangle& region, const capture::PointerDrawing& pointer) override
    {
        const auto now = capture::CaptureClock::now();
        if (m_screen.grabMilliseconds > 0)
            std::this_thread::sleep_for(std::chrono::milliseconds(m_screen.grabMilliseconds));
        if (m_screen.gone)
            throw std::runtime_error("display gone");
        {
            const std::lock_guard lock(m_screen.mutex);
            m_screen.lastRegion = region;
            m_screen.lastPointer = pointer;
            if (m_screen.grabs++ == 0)
                m_screen.firstGrab = now;
        }
        const int grey = m_screen.grey;
        if (region == m_region && grey == m_grey)
            return {{}, m_image};
        m_region = region;
        m_grey = grey;
        m_image.resize(region.width, region.height);
        std::ranges::fill(m_image.pixels, std::uint8_t(grey));
        return {{0, 0, region.width, region.height}, m_image};
    }

    capture::PixelRectangle screen() override { return {0, 0, 100, 80}; }
    capture::PixelPoint pointer() override { return {m_screen.pointerX, m_screen.pointerY}; }

  private:
    FakeScreen& m_screen;
    capture::PixelRectangle m_region{};
    capture::ScreenImage m_image{};
    int m_grey = -1;
};

/// Sound of one value that the test sets, delivered by a thread as a sound server does it.
struct FakeMicrophone {
    std::atomic<float> value{0.5F};
    std::atomic<bool> silent{false};
    std::atomic<int> running{0};
    std::atomic<int> started{0};
};

class FakeSoundSource : public capture::SoundSource {
  public:
    explicit FakeSoundSource(FakeMicrophone& microphone) : m_microphone(microphone) {}
    ~FakeSoundSource() override { stop(); }

    void start(capture::SoundSink& sink) override
    {
        ++m_microphone.started;
        ++m_microphone.running;
        m_thread = std::thread([this, &sink] { deliver(sink); });
    }
    void stop() override
    {
        if (!m_thread.joinable())
            return;
        m_stopping = true;
        m_thread.join();
        --m_microphone.running;
    }
    std::vector<std::string> inputNames() override { return {"Microphone", "Line in"}; }

  private:
    void deliver(capture::SoundSink& sink)
    {
        const auto begin = capture::CaptureClock::now();
        std::int64_t delivered = 0;
        while (!m_stopping) {
            std::this_thread::sleep_for(std::chrono::milliseconds(20));
            const std::chrono::duration<double> passed = capture::CaptureClock::now() - begin;
            const auto until = std::int64_t(passed.count() * capture::kSoundRate);
            const std::vector<float> samples(std::size_t(until - delivered), m_microphone.value);
            const auto stamp =
                begin + std::chrono::duration_cast<capture::CaptureClock::duration>(
                            std::chrono::duration<double>(double(delivered) / capture::kSoundRate));
            if (!m_microphone.silent)
                sink.takeSound(stamp, samples);
            delivered = until;
        }
    }

    FakeMicrophone& m_microphone;
    std::atomic<bool> m_stopping{false};
    std::thread m_thread{};
};

/// What went into a file, each frame as the luma of its first pixel.
struct WrittenMedia {
    std::mutex mutex{};
    std::condition_variable changed{};
    capture::MediaFormat format{};
    std::vector<int> frames{};
    std::vector<float> sound{};
    int opened = 0;
    int closed = 0;
    int flushed = 0;
    bool refusesToOpen = false;
    /// From this many frames on nothing can be written.
    std::size_t diskFullAfterFrames = SIZE_MAX;
    /// While set, writing waits.
    bool hangs = false;

    std::size_t frameCount()
    {
        const std::lock_guard lock(mutex);
        return frames.size();
    }
    double soundSeconds()
    {
        const std::lock_guard lock(mutex);
        return double(sound.size()) / capture::kSoundRate;
    }
    void letGo()
    {
        const std::lock_guard lock(mutex);
        hangs = false;
        changed.notify_all();
    }
};

class MemoryMediaWriter : public capture::MediaWriter {
  public:
    MemoryMediaWriter(std::shared_ptr<WrittenMedia> media, const capture::MediaFormat& format)
        : m_media(media)
    {
        const std::lock_guard lock(m_media->mutex);
        if (m_media->refusesToOpen)
            throw std::runtime_error("no such folder");
        ++m_media->opened;
        m_media->format = format;
        m_media->frames.clear();
        m_media->sound.clear();
    }

    void writePicture(capture::SharedPicture picture, std::int64_t) override { add(picture->luma[0], 1); }
    void repeatPicture(std::int64_t frames) override { add(m_last, frames); }
    void writeSound(std::span<const float> samples) override
    {
        const std::lock_guard lock(m_media->mutex);
        m_media->sound.insert(m_media->sound.end(), samples.begin(), samples.end());
    }
    void flush() override
    {
        const std::lock_guard lock(m_media->mutex);
        ++m_media->flushed;
    }
    void close() override
    {
        const std::lock_guard lock(m_media->mutex);
        ++m_media->closed;
    }

  private:
    void add(int luma, std::int64_t count)
    {
        std::unique_lock lock(m_media->mutex);
        m_media->changed.wait(lock, [&] { return !m_media->hangs; });
        if (m_media->frames.size() >= m_media->diskFullAfterFrames)
            throw std::runtime_error("disk full");
        m_media->frames.insert(m_media->frames.end(), std::size_t(count), luma);
        m_last = luma;
    }

    std::shared_ptr<WrittenMedia> m_media;
    int m_last = -1;
};

/// A world to record: everything that a recording touches, under the test's control.
struct FakeCaptureWorld {
    FakeScreen screen{};
    FakeMicrophone microphone{};
    std::shared_ptr<WrittenMedia> media = std::make_shared<WrittenMedia>();

    capture::CapturePorts ports()
    {
        return {[this] { return std::make_unique<FakeScreenSource>(screen); },
                [this] { return std::make_unique<FakeSoundSource>(microphone); },
                [kept = media](const capture::MediaFormat& format) {
                    return std::make_unique<MemoryMediaWriter>(kept, format);
                }};
    }
};

} // namespace quillora::tests
