#include "capture/sound_standby.h"

#include <utility>

namespace quillora::capture {

class SoundStandby::Source : public SoundSource {
  public:
    explicit Source(std::shared_ptr<SoundStandby> standby) : m_standby(std::move(standby)) {}
    ~Source() override { Source::stop(); }

    void start(SoundSink& sink) override
    {
        m_sink = &sink;
        m_standby->attach(sink);
    }

    void stop() override
    {
        if (auto* sink = std::exchange(m_sink, nullptr))
            m_standby->detach(*sink);
    }

    std::vector<std::string> inputNames() override
    {
        const std::lock_guard lock(m_standby->m_inputMutex);
        return m_standby->m_input->inputNames();
    }

  private:
    std::shared_ptr<SoundStandby> m_standby;
    SoundSink* m_sink = nullptr;
};

SoundStandby::~SoundStandby()
{
    if (m_listening)
        m_input->stop();
}

void SoundStandby::listen()
{
    const std::lock_guard lock(m_inputMutex);
    if (std::exchange(m_listening, true))
        return;
    m_input->start(*this);
}

std::unique_ptr<SoundSource> SoundStandby::source() { return std::make_unique<Source>(shared_from_this()); }

void SoundStandby::attach(SoundSink& sink)
{
    {
        const std::lock_guard lock(m_takerMutex);
        m_taker = &sink;
    }
    listen();
}

void SoundStandby::detach(SoundSink& sink)
{
    const std::lock_guard inputLock(m_inputMutex);
    {
        const std::lock_guard lock(m_takerMutex);
        // A later recording may have taken over meanwhile, from one that hung.
        if (m_taker != &sink)
            return;
        m_taker = nullptr;
    }
    m_input->stop();
    m_listening = false;
}

void SoundStandby::takeSound(CaptureClock::time_point firstSample, std::span<const float> samples)
{
    const std::lock_guard lock(m_takerMutex);
    if (m_taker)
        m_taker->takeSound(firstSample, samples);
}

} // namespace quillora::capture
