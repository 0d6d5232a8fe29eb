#pragma once

#include "audio/wave_input.h"
#include "base/platform/pulse/pulse_connection.h"
#include "messages/message_queue.h"

#include <condition_variable>
#include <deque>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <thread>

namespace quillora::audio {

/// One open wave input: a thread of its own that reads an input of the sound server into the buffers which
/// are queued, and posts each one that is full. What comes while no buffer is queued, or before the start, is
/// lost. When the server or an input that was chosen goes away, nothing more comes; the default input is
/// another one then. All operations are called from one other thread.
class WaveInStream {
  public:
    struct Target {
        messages::MessageQueue& queue;
        messages::WindowHandle window;
    };

    /// @p source is the input's id; without one it is the default input.
    WaveInStream(const std::optional<std::string>& server, std::optional<std::string> source,
                 const WaveFormat& format, const Target& target);
    ~WaveInStream();
    WaveInStream(const WaveInStream&) = delete;
    WaveInStream& operator=(const WaveInStream&) = delete;

    /// Waits until the input is open, or is known not to be, at most for @p limit.
    bool opened(std::chrono::milliseconds limit);

    /// False for a buffer that is queued already.
    bool queue(WaveHeader& header);
    void start();
    /// Posts the buffer that is being filled, as far as it is.
    void stop();
    /// Posts all buffers that are queued.
    void reset();

  private:
    enum class State { opening, open, failed };
    struct FreeStream {
        void operator()(pa_stream* stream) const
        {
            pa_stream_disconnect(stream);
            pa_stream_unref(stream);
        }
    };
    using Stream = std::unique_ptr<pa_stream, FreeStream>;

    void run(const std::stop_token& stop);
    Stream connectStream() const;
    /// False when the stream can't be read any more.
    bool read(pa_stream& stream);
    void take(const char* data, std::size_t bytes);
    void finishFirst();
    std::size_t capacityOf(const WaveHeader& header) const;
    void setState(State state);

    const std::optional<std::string> m_source;
    const pa_sample_spec m_form;
    const std::size_t m_frameBytes;
    const Target m_target;
    base::PulseConnection m_loop;

    std::mutex m_mutex{};
    std::condition_variable m_stateChanged{};
    /// All below guarded by m_mutex; the headers' contents as well, while they are queued.
    State m_state = State::opening;
    bool m_started = false;
    std::deque<WaveHeader*> m_queued{};
    /// Last: it uses all of the above.
    std::jthread m_thread;
};

} // namespace quillora::audio
