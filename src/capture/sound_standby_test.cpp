#include "capture/sound_standby.h"

#include <gtest/gtest.h>

#include <array>

namespace quillora::capture {
namespace {

/// A microphone into which a test speaks.
class FakeInput : public SoundSource {
  public:
    void start(SoundSink& sink) override
    {
        m_sink = &sink;
        ++starts;
    }
    void stop() override { m_sink = nullptr; }
    std::vector<std::string> inputNames() override { return {"Microphone"}; }

    bool isOpen() const { return m_sink != nullptr; }
    void speak(float sample)
    {
        if (m_sink)
            m_sink->takeSound({}, std::array{sample});
    }

    int starts = 0;

  private:
    SoundSink* m_sink = nullptr;
};

class Taker : public SoundSink {
  public:
    std::vector<float> heard{};

    void takeSound(CaptureClock::time_point /*firstSample*/, std::span<const float> samples) override
    {
        heard.insert(heard.end(), samples.begin(), samples.end());
    }
};

class SoundStandbyTest : public testing::Test {
  protected:
    using Samples = std::vector<float>;

    FakeInput* microphone = new FakeInput;
    std::shared_ptr<SoundStandby> standby =
        std::make_shared<SoundStandby>(std::unique_ptr<SoundSource>(microphone));
    Taker taker{};
};

TEST_F(SoundStandbyTest, OpensTheInputAheadAndDropsWhatNobodyTakes)
{
    standby->listen();
    EXPECT_TRUE(microphone->isOpen());
    microphone->speak(0.1F);
    const auto source = standby->source();
    source->start(taker);
    microphone->speak(0.2F);
    EXPECT_EQ(taker.heard, Samples{0.2F});
    EXPECT_EQ(microphone->starts, 1);
}

TEST_F(SoundStandbyTest, OpensTheInputAtTheStartWhereNobodyAnnouncedIt)
{
    const auto source = standby->source();
    EXPECT_FALSE(microphone->isOpen());
    source->start(taker);
    microphone->speak(0.2F);
    EXPECT_EQ(taker.heard, Samples{0.2F});
}

TEST_F(SoundStandbyTest, ClosesTheInputWithTheRecording)
{
    standby->listen();
    const auto source = standby->source();
    source->start(taker);
    source->stop();
    EXPECT_FALSE(microphone->isOpen());
    standby->listen();
    EXPECT_EQ(microphone->starts, 2);
}

TEST_F(SoundStandbyTest, AnnouncedTwiceOpensOnce)
{
    standby->listen();
    standby->listen();
    EXPECT_EQ(microphone->starts, 1);
}

TEST_F(SoundStandbyTest, GivesTheSoundToTheRecordingThatStartedLast)
{
    const auto hung = standby->source();
    hung->start(taker);
    Taker next;
    const auto source = standby->source();
    source->start(next);
    hung->stop();
    microphone->speak(0.3F);
    EXPECT_EQ(taker.heard, Samples{});
    EXPECT_EQ(next.heard, Samples{0.3F});
}

TEST_F(SoundStandbyTest, ClosesTheInputWhenASourceIsLetGo)
{
    standby->source()->start(taker);
    EXPECT_FALSE(microphone->isOpen());
}

TEST_F(SoundStandbyTest, TellsTheNamesOfTheInputs)
{
    EXPECT_EQ(standby->source()->inputNames(), std::vector<std::string>{"Microphone"});
}

} // namespace
} // namespace quillora::capture
