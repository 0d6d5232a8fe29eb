#include "capture/recording.h"

#include "base/skip_failures.h"
#include "capture/picture_converter.h"

#include <algorithm>
#include <optional>
#include <utility>

namespace quillora::capture {

namespace {

using namespace std::chrono_literals;

/// Pictures that wait for the writer; half a second at the usual rate.
constexpr std::size_t kMostPictures = 12;
/// Sound that waits for the writer, 30 s.
constexpr std::size_t kMostSoundSamples = 30 * std::size_t{kSoundRate};
/// Sound that hasn't come by then is taken to be none. Until then pictures wait for it in memory, and would
/// be lost if the process were killed.
constexpr auto kSoundPatience = 1s;
/// At the end, for the sound that was recorded but not delivered yet.
constexpr auto kLastSoundPatience = 150ms;
constexpr auto kLastSoundInterval = 10ms;
/// A still picture and sound are written in this rhythm; a new picture is written at once.
constexpr auto kWriteInterval = 200ms;
constexpr auto kFlushInterval = 250ms;
/// How long the caller waits for the disk, and how often a display that isn't there is looked for again.
constexpr auto kOpenPatience = 2s;
constexpr auto kEndPatience = 5s;
/// A grab that takes longer doesn't hold up the file: its frames become repeats.
constexpr auto kGrabPatience = 500ms;
constexpr auto kReopenInterval = 1s;

} // namespace

/// The grab thread's own: the screen, and the picture as it was last.
class Recording::Grabber {
  public:
    Grabber(const CapturePorts& ports, int width, int height)
        : m_ports(ports), m_width(width), m_height(height), m_converter(width, height)
    {}

    /// Takes a picture. Returns how many pixels of it may have changed. A screen that can't be read shows
    /// what it showed last.
    std::int64_t grab(const CaptureView& view)
    {
        std::int64_t changedPixels = 0;
        base::skipFailures([&] {
            if (!m_screen && !open())
                return;
            const PixelRectangle region = regionOf(view, *m_screen, m_width, m_height);
            const ScreenSource::Grab taken = m_screen->grab(region, view.pointer);
            if (!taken.changed.empty())
                changedPixels = m_converter.update(taken.image, taken.changed);
        });
        return changedPixels;
    }

    SharedPicture picture() { return m_converter.handOut(); }

  private:
    bool open()
    {
        const auto now = CaptureClock::now();
        if (m_nextTry && now < *m_nextTry)
            return false;
        m_nextTry = now + kReopenInterval;
        m_screen = m_ports.openScreen();
        return m_screen != nullptr;
    }

    const CapturePorts& m_ports;
    int m_width;
    int m_height;
    std::unique_ptr<ScreenSource> m_screen{};
    std::optional<CaptureClock::time_point> m_nextTry{};
    PictureConverter m_converter;
};

/// The writer thread's own: the file, and how far it is.
class Recording::Filer {
  public:
    void open(const CapturePorts& ports, const MediaFormat& format) { m_writer = ports.openWriter(format); }

    void write(const Delivery& delivery)
    {
        for (const NumberedPicture& next : delivery.pictures) {
            repeatUntil(next.frame);
            m_writer->writePicture(next.picture, next.changedPixels);
            ++m_frames;
        }
        repeatUntil(delivery.frames);

        for (const SoundChunk& chunk : delivery.sound)
            m_synchroniser.take(delivery.clock, chunk.firstSample, chunk.samples, m_samples);
        fillSound(delivery.clock.recordedAt(CaptureClock::now() - kSoundPatience));
    }

    /// Whether the sound of all of the recording is there.
    bool hasSoundUntil(RecordedTime recorded) const
    {
        return double(m_synchroniser.produced()) >=
               std::chrono::duration<double>(recorded).count() * kSoundRate - 3;
    }

    void fillSound(RecordedTime recorded)
    {
        m_synchroniser.fillUntil(recorded, m_samples);
        m_writer->writeSound(m_samples);
        m_samples.clear();
    }

    void flush()
    {
        const auto now = CaptureClock::now();
        if (now - m_flushed < kFlushInterval)
            return;
        m_flushed = now;
        m_writer->flush();
    }

    void close() { m_writer->close(); }

  private:
    void repeatUntil(std::int64_t frame)
    {
        if (frame <= m_frames)
            return;
        m_writer->repeatPicture(frame - m_frames);
        m_frames = frame;
    }

    std::unique_ptr<MediaWriter> m_writer{};
    SoundSynchroniser m_synchroniser{};
    std::vector<float> m_samples{};
    std::int64_t m_frames = 0;
    CaptureClock::time_point m_flushed{};
};

Recording::Recording(CapturePorts ports, MediaFormat format)
    : m_ports(std::move(ports)), m_format(std::move(format)), m_pacer(m_format.framesPerSecond)
{}

Recording::~Recording() = default;

void Recording::begin(const CaptureView& view)
{
    resume(view);
    m_grabThread = std::thread([self = shared_from_this()] { self->grab(); });
    m_writerThread = std::thread([self = shared_from_this()] { self->write(); });

    std::unique_lock lock(m_mutex);
    // A disk that takes longer may still come round; the recording goes on without knowing.
    m_callerWakes.wait_for(lock, kOpenPatience, [&] { return m_opened; });
    if (!m_openFailure)
        return;
    lock.unlock();
    end();
    std::rethrow_exception(m_openFailure);
}

void Recording::resume(const CaptureView& view)
{
    const auto now = CaptureClock::now();
    const std::lock_guard lock(m_mutex);
    m_view = view;
    if (m_clock.running())
        return;
    m_clock.resume(now);
    m_grabWakes.notify_one();
}

void Recording::pause()
{
    const auto now = CaptureClock::now();
    const std::lock_guard lock(m_mutex);
    m_clock.pause(now);
    m_grabWakes.notify_one();
}

void Recording::end()
{
    pause();
    std::unique_lock lock(m_mutex);
    m_ending = true;
    m_endBegan = CaptureClock::now();
    m_grabWakes.notify_one();
    m_writerWakes.notify_one();
    m_callerWakes.wait_for(lock, kEndPatience, [&] { return m_grabDone && m_writerDone; });
    const bool grabDone = m_grabDone;
    const bool writerDone = m_writerDone;
    lock.unlock();

    for (auto [thread, done] : {std::pair{&m_grabThread, grabDone}, std::pair{&m_writerThread, writerDone}}) {
        if (!thread->joinable())
            continue;
        if (done)
            thread->join();
        else
            thread->detach();
    }
}

Recording::Counts Recording::counts() const
{
    const std::lock_guard lock(m_mutex);
    return m_counts;
}

void Recording::takeSound(CaptureClock::time_point firstSample, std::span<const float> samples)
{
    const std::lock_guard lock(m_mutex);
    if (m_fileEnded || m_soundSamples + samples.size() > kMostSoundSamples)
        return;
    m_soundSamples += samples.size();
    m_sound.push_back({firstSample, {samples.begin(), samples.end()}});
}

// The grab thread.

void Recording::grab()
{
    Grabber grabber(m_ports, m_format.width, m_format.height);
    // A change that found no place in the queue, and so has to come with the next frame.
    std::int64_t owedPixels = 0;
    std::unique_lock lock(m_mutex);
    while (waitForFrame(lock)) {
        const std::int64_t frame = m_counts.frames;
        const CaptureView view = m_view;
        lock.unlock();
        owedPixels += grabber.grab(view);
        lock.lock();
        // Where the grab took so long that the file went on without it, the picture goes with the next frame.
        const bool inTime = m_counts.frames == frame;
        if (inTime)
            ++m_counts.frames;
        if (owedPixels == 0 || !inTime || m_fileEnded)
            continue;
        if (m_pictures.size() >= kMostPictures) {
            ++m_counts.dropped;
            continue;
        }
        queuePicture(grabber.picture(), frame, owedPixels);
        owedPixels = 0;
    }
    m_grabDone = true;
    m_writerWakes.notify_one();
    m_callerWakes.notify_one();
}

/// Waits until there is a frame to be grabbed, and settles those that aren't: the ones whose time has passed
/// already, and the ones of a segment that has ended. False when the recording ends.
bool Recording::waitForFrame(std::unique_lock<std::mutex>& lock)
{
    for (;;) {
        const bool running = m_clock.running() && !m_ending;
        const std::int64_t due = m_pacer.framesDue(m_clock, CaptureClock::now());
        const std::int64_t passed = running ? due - 1 : due;
        if (passed > m_counts.frames) {
            if (running)
                m_counts.dropped += passed - m_counts.frames;
            m_counts.frames = passed;
        }
        if (m_ending)
            return false;
        if (running && due > m_counts.frames && !m_fileEnded)
            return true;
        if (running && !m_fileEnded)
            m_grabWakes.wait_until(lock, m_pacer.nextDue(m_clock));
        else
            m_grabWakes.wait(lock);
    }
}

void Recording::queuePicture(SharedPicture picture, std::int64_t frame, std::int64_t changedPixels)
{
    m_pictures.push_back({frame, std::move(picture), changedPixels});
    m_writerWakes.notify_one();
}

// The writer thread.

void Recording::write()
{
    Filer filer;
    if (openFile(filer)) {
        std::unique_ptr<SoundSource> sound;
        base::skipFailures(
            [&] {
                sound = m_ports.openSound();
                sound->start(*this);
            },
            [&] { fill(filer); });
        endFile();
        if (sound)
            base::skipFailures([&] { sound->stop(); });
        filer.close();
    }
    const std::lock_guard lock(m_mutex);
    m_writerDone = true;
    m_callerWakes.notify_one();
}

bool Recording::openFile(Filer& filer)
{
    std::exception_ptr failure;
    try {
        filer.open(m_ports, m_format);
    } catch (const std::exception&) {
        failure = std::current_exception();
    }
    const std::lock_guard lock(m_mutex);
    m_opened = true;
    m_openFailure = failure;
    m_fileEnded = failure != nullptr;
    m_callerWakes.notify_one();
    return !failure;
}

/// Fails when the file can't be continued.
void Recording::fill(Filer& filer)
{
    std::optional<CaptureClock::time_point> soundDeadline;
    for (;;) {
        Delivery delivery = nextDelivery(soundDeadline ? kLastSoundInterval : kWriteInterval);
        filer.write(delivery);
        filer.flush();
        const bool last = delivery.last;
        const RecordedTime recorded = delivery.clock.recordedAt(CaptureClock::now());
        if (!last)
            continue;
        if (!soundDeadline)
            soundDeadline = CaptureClock::now() + kLastSoundPatience;
        if (filer.hasSoundUntil(recorded) || CaptureClock::now() >= *soundDeadline) {
            filer.fillSound(recorded);
            return;
        }
    }
}

Recording::Delivery Recording::nextDelivery(CaptureClock::duration patience)
{
    std::unique_lock lock(m_mutex);
    // At the end there is nothing to wait for but sound, which wakes nobody.
    const auto ready = [&] {
        return !m_pictures.empty() || (m_ending && m_grabDone && patience == kWriteInterval);
    };
    m_writerWakes.wait_for(lock, patience, ready);

    const auto now = CaptureClock::now();
    const bool grabberHangs = m_ending && !m_grabDone && now >= m_endBegan + kGrabPatience;
    const bool last = m_ending && (m_grabDone || grabberHangs);
    const std::int64_t due = m_pacer.framesDue(m_clock, last ? now : now - kGrabPatience);
    if (due > m_counts.frames) {
        m_counts.dropped += due - m_counts.frames;
        m_counts.frames = due;
    }

    Delivery delivery{std::exchange(m_pictures, {}), std::exchange(m_sound, {}), m_clock, m_counts.frames,
                      last};
    m_soundSamples = 0;
    return delivery;
}

void Recording::endFile()
{
    const std::lock_guard lock(m_mutex);
    m_fileEnded = true;
    m_pictures.clear();
    m_sound.clear();
}

} // namespace quillora::capture
