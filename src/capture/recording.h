#pragma once

#include "capture/capture_ports.h"
#include "capture/capture_region.h"
#include "capture/frame_pacer.h"
#include "capture/picture_pool.h"
#include "capture/segment_clock.h"
#include "capture/timeline_writer.h"

#include <condition_variable>
#include <cstdint>
#include <deque>
#include <exception>
#include <memory>
#include <mutex>
#include <thread>
#include <vector>

namespace quillora::capture {

/// One recording: one file, from its first segment to its end.
///
/// Three threads work on it. The *grab thread* takes a picture when a frame is due and converts it. The
/// *sound thread*, the source's own, delivers chunks. The *writer thread* puts sound and pictures into the
/// file and owns the sound source and the writer. They meet in this object's queues, which have bounds:
/// pictures beyond them become repeats of the one before, sound becomes silence. A frame that repeats needs
/// no place in a queue: the writer knows how many frames there are, and repeats where it has no picture for
/// one.
///
/// The operations are called on one thread, the caller's. None waits for a display or a sound server, and
/// none for a disk longer than some seconds; a thread that hangs is left behind and keeps this object alive.
class Recording : public SoundSink, public std::enable_shared_from_this<Recording> {
  public:
    struct Counts {
        /// Frames of the recording so far.
        std::int64_t frames = 0;
        /// Those of them that repeat the picture before because the grab thread came too late, or the queue
        /// was full, although the recording ran.
        std::int64_t dropped = 0;
    };

    Recording(CapturePorts ports, MediaFormat format);
    ~Recording() override;
    Recording(const Recording&) = delete;
    Recording& operator=(const Recording&) = delete;

    /// Starts the threads and the first segment. Throws std::runtime_error when the file can't be written.
    void begin(const CaptureView& view);
    /// When it runs already, the segment goes on with what @p view takes.
    void resume(const CaptureView& view);
    /// Harmless when it is paused already.
    void pause();
    /// Finishes the file. Afterwards nothing may be called but counts().
    void end();

    Counts counts() const;

    void takeSound(CaptureClock::time_point firstSample, std::span<const float> samples) override;

  private:
    /// What the writer thread waits for: pictures, or at the end, when there are no more, the sound of the
    /// last moments, which wakes nobody.
    enum class WaitsFor { pictures, lastSound };

    void grab();
    bool waitForFrame(std::unique_lock<std::mutex>& lock);
    void dropFramesUntil(std::int64_t frame);
    void queuePicture(SharedPicture picture, std::int64_t frame, std::int64_t changedPixels);
    void write();
    std::unique_ptr<MediaWriter> openFile();
    void fill(TimelineWriter& writer);
    Delivery nextDelivery(WaitsFor what);
    void endFile();

    const CapturePorts m_ports;
    const MediaFormat m_format;

    mutable std::mutex m_mutex{};
    // All below is guarded by the mutex.
    std::condition_variable m_grabWakes{};
    std::condition_variable m_writerWakes{};
    std::condition_variable m_callerWakes{};
    SegmentClock m_clock{};
    FramePacer m_pacer;
    CaptureView m_view{};
    Counts m_counts{};
    std::deque<NumberedPicture> m_pictures{};
    std::vector<SoundChunk> m_sound{};
    std::size_t m_soundSamples = 0;
    bool m_ending = false;
    CaptureClock::time_point m_endBegan{};
    /// Nothing more goes into the file: it could not be opened, or the disk is full.
    bool m_fileEnded = false;
    bool m_opened = false;
    std::exception_ptr m_openFailure{};
    bool m_grabDone = false;
    bool m_writerDone = false;

    // The caller's alone.
    std::thread m_grabThread{};
    std::thread m_writerThread{};
};

} // namespace quillora::capture
