#pragma once

#include "base/platform/pulse/pulse_connection.h"
#include "capture/sound_source.h"

#include <cstddef>
#include <deque>
#include <memory>
#include <sys/time.h>
#include <vector>

namespace quillora::capture {

/// The sound of the default input, from a connection that is ready. When the input goes away the server moves
/// the stream to another one; where there is no other, the stream fails.
class RecordStream {
  public:
    explicit RecordStream(const base::PulseConnection& connection);

    bool failed() const { return !m_opening || !PA_STREAM_IS_GOOD(pa_stream_get_state(m_stream.get())); }
    /// Hands on what has arrived. Returns whether anything had.
    bool deliverTo(SoundSink& sink);

  private:
    struct FreeStream {
        void operator()(pa_stream* stream) const
        {
            pa_stream_disconnect(stream);
            pa_stream_unref(stream);
        }
    };

    void updateAnchor();
    CaptureClock::time_point timeOfNextSample() const;
    void deliverPiece(SoundSink& sink, CaptureClock::time_point firstSample, const float* samples,
                      std::size_t count);

    std::unique_ptr<pa_stream, FreeStream> m_stream;
    bool m_opening = false;
    /// When the server told how far the input had got, and when the stream had begun by that. Telling takes
    /// time, and a busy machine's time: of several, the earliest beginning is the true one.
    struct Anchor {
        CaptureClock::time_point told{};
        CaptureClock::time_point beginning{};
    };
    std::deque<Anchor> m_anchors{};
    timeval m_anchorStamp{};
    /// Samples at the beginning that aren't handed on.
    std::size_t m_toSkip = 0;
    std::vector<float> m_piece{};
};

} // namespace quillora::capture
