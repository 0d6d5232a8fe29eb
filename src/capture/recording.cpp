#include "capture/recording.h"

#include "base/skip_failures.h"
#include "capture/screen_grabber.h"

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
/// At the end, for the sound that was recorded but not delivered yet.
constexpr auto kLastSoundPatience = 150ms;
constexpr auto kLastSoundInterval = 10ms;
/// A still picture and sound are written in this rhythm; a new picture is written at once.
constexpr auto kWriteInterval = 200ms;
/// How long the caller waits for the disk.
constexpr auto kOpenPatience = 2s;
constexpr auto kEndPatience = 5s;
/// A grab that takes longer doesn't hold up the file: its frames become repeats.
constexpr auto kGrabPatience = 500ms;

} // namespace

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
    ScreenGrabber grabber(m_ports, m_format.width, m_format.height);
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
        const auto now = CaptureClock::now();
        const std::int64_t due = m_pacer.framesDue(m_clock, now);
        // Who is that late goes on with the newest: to take one late frame after the other would put all of
        // them beside their sound.
        if (running && m_pacer.tooLate(m_counts.frames, m_clock, now))
            dropFramesUntil(due - 1);
        if (!running)
            m_counts.frames = std::max(m_counts.frames, due);
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

/// The frames before @p frame that have no picture yet get none any more.
void Recording::dropFramesUntil(std::int64_t frame)
{
    if (frame <= m_counts.frames)
        return;
    m_counts.dropped += frame - m_counts.frames;
    m_counts.frames = frame;
}

void Recording::queuePicture(SharedPicture picture, std::int64_t frame, std::int64_t changedPixels)
{
    m_pictures.push_back({frame, std::move(picture), changedPixels});
    m_writerWakes.notify_one();
}

// The writer thread.

void Recording::write()
{
    if (auto file = openFile()) {
        TimelineWriter writer(std::move(file));
        std::unique_ptr<SoundSource> sound;
        base::skipFailures(
            [&] {
                sound = m_ports.openSound();
                sound->start(*this);
            },
            [&] { fill(writer); });
        endFile();
        if (sound)
            base::skipFailures([&] { sound->stop(); });
        writer.close();
    }
    const std::lock_guard lock(m_mutex);
    m_writerDone = true;
    m_callerWakes.notify_one();
}

/// Null when the file can't be written.
std::unique_ptr<MediaWriter> Recording::openFile()
{
    std::unique_ptr<MediaWriter> file;
    std::exception_ptr failure;
    try {
        file = m_ports.openWriter(m_format);
    } catch (const std::exception&) {
        failure = std::current_exception();
    }
    const std::lock_guard lock(m_mutex);
    m_opened = true;
    m_openFailure = failure;
    m_fileEnded = failure != nullptr;
    m_callerWakes.notify_one();
    return file;
}

/// Fails when the file can't be continued.
void Recording::fill(TimelineWriter& writer)
{
    std::optional<CaptureClock::time_point> soundDeadline;
    for (;;) {
        const Delivery delivery = nextDelivery(soundDeadline ? WaitsFor::lastSound : WaitsFor::pictures);
        const auto now = CaptureClock::now();
        writer.write(delivery, now);
        writer.flush(now);
        if (!delivery.last)
            continue;
        if (!soundDeadline)
            soundDeadline = now + kLastSoundPatience;
        const RecordedTime recorded = delivery.clock.recordedAt(now);
        if (writer.hasSoundUntil(recorded) || now >= *soundDeadline) {
            writer.fillSound(recorded);
            return;
        }
    }
}

Delivery Recording::nextDelivery(WaitsFor what)
{
    std::unique_lock lock(m_mutex);
    if (what == WaitsFor::pictures)
        m_writerWakes.wait_for(lock, kWriteInterval,
                               [&] { return !m_pictures.empty() || (m_ending && m_grabDone); });
    else
        m_writerWakes.wait_for(lock, kLastSoundInterval, [&] { return !m_pictures.empty(); });

    const auto now = CaptureClock::now();
    const bool grabberHangs = m_ending && !m_grabDone && now >= m_endBegan + kGrabPatience;
    const bool last = m_ending && (m_grabDone || grabberHangs);
    dropFramesUntil(m_pacer.framesDue(m_clock, last ? now : now - kGrabPatience));

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
