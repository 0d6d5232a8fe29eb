#include "session/microphone_icon.h"

#include "tests/support/fake_microphone_setting.h"

#include <gtest/gtest.h>

using namespace quillora::session;
using namespace quillora::tests;

namespace {

class MicrophoneIconTest : public testing::Test {
  protected:
    auto clicksIn(const std::string& recordState)
    {
        fields.recordState = recordState;
        icon.Image3_Click();
        return log.count("mic_frm shown");
    }

    CallLog log;
    FakeMicrophoneSetting mic_frm{log};
    SessionFields fields;
    MicrophoneIcon icon{fields, mic_frm};
};

} // namespace

TEST_F(MicrophoneIconTest, ShowsTheDialog) { EXPECT_EQ(clicksIn("stop"), 1); }

TEST_F(MicrophoneIconTest, ShowsTheDialogInAPause) { EXPECT_EQ(clicksIn("pause"), 1); }

TEST_F(MicrophoneIconTest, DoesNothingWhileARecordingRuns) { EXPECT_EQ(clicksIn("record"), 0); }
