#pragma once

#include "capture/sound_source.h"

#include <memory>
#include <mutex>

namespace quillora::capture {

/// Opens the sound input before it is needed. A sound server takes a tenth of a second to deliver the first
/// sample, and on a busy machine more than one: a presenter who speaks with the first frame would lose the
/// first word. Sound that nobody takes yet is dropped.
///
/// Any thread; the sources that it hands out keep it alive.
class SoundStandby : private SoundSink, public std::enable_shared_from_this<SoundStandby> {
  public:
    /// @p input has not been started.
    explicit SoundStandby(std::unique_ptr<SoundSource> input) : m_input(std::move(input)) {}
    ~SoundStandby() override;

    /// Opens the input, which stays open until a source made by source() was started and stopped.
    void listen();

    /// The input as one recording sees it. Starting another such source takes the sound over from the one
    /// before.
    std::unique_ptr<SoundSource> source();

  private:
    class Source;

    void attach(SoundSink& sink);
    void detach(SoundSink& sink);
    void takeSound(CaptureClock::time_point firstSample, std::span<const float> samples) override;

    /// Guards the input's operations; taken before the other.
    std::mutex m_inputMutex{};
    std::unique_ptr<SoundSource> m_input;
    bool m_listening = false;

    std::mutex m_takerMutex{};
    SoundSink* m_taker = nullptr;
};

} // namespace quillora::capture
