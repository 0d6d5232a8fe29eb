#include "session/capture_options.h"

#include "session/option_captions.h"
#include "tests/support/comma_locale.h"
#include "tests/support/fake_capture_engine.h"
#include "tests/support/fake_capture_options_form.h"
#include "tests/support/fake_main_window.h"
#include "tests/support/fake_message_boxes.h"

#include <gtest/gtest.h>

namespace quillora::session {
namespace {

class CaptureOptionsTest : public testing::Test {
  protected:
    std::string fps() { return options.controls().settings.txtfps; }
    std::string bitrate() { return options.controls().settings.bitrate_txt; }

    tests::CallLog log{};
    tests::FakeCaptureEngineFactory engines{log};
    tests::FakeMainWindow window{log};
    tests::FakeMessageBoxes boxes{log};
    tests::FakeCaptureOptionsForm form{log};
    SessionFields fields{};
    CaptureEngineField captureEngine{engines};
    CaptureOptions options{{fields, window, boxes, captureEngine, form}};
};

using Calls = std::vector<std::string>;

TEST_F(CaptureOptionsTest, BeginWithTheirStoredValues)
{
    const auto& settings = options.controls().settings;
    EXPECT_EQ(settings.txtfps, "24");
    EXPECT_EQ(settings.bitrate_txt, "700");
    EXPECT_TRUE(settings.capturecursor_chk);
    EXPECT_FALSE(settings.highlightCursor_chk);
}

TEST_F(CaptureOptionsTest, KeepTheControlsThatNothingReadsAsStored)
{
    const auto& controls = options.controls();
    EXPECT_EQ(controls.VideoCodecs_cmb, "Microsoft Video 1");
    EXPECT_EQ(controls.cmbAudioDevicesX, "");
    EXPECT_EQ(controls.cmbAudioLinesX, "");
    EXPECT_FALSE(controls.anim_chk || controls.narration_chk || controls.timing_chk || controls.Check1);
    EXPECT_EQ(controls.size, ShowSize::n_opt);
    EXPECT_EQ(controls.SS_txt, "1");
    EXPECT_TRUE(controls.chkcapwindow);
    EXPECT_EQ(controls.txtwinhandle + controls.txtleft + controls.txtTop, "000");
    EXPECT_EQ(controls.txtwidth + "x" + controls.txtheight, "100x100");
    EXPECT_EQ(controls.txtvolume1, "1");
    EXPECT_EQ(controls.FPath_txt + controls.h_txt + controls.w_txt, "FPath_txthw");
}

TEST_F(CaptureOptionsTest, AskTheEngineForItsListsWhenTheFormIsLoaded)
{
    options.toolbar_options();
    EXPECT_EQ(log.startingWith("list "),
              (Calls{"list VideoCodecCount", "list VideoCodecName 0", "list VideoCodecName 1",
                     "list AudioDeviceCount", "list AudioDeviceName 0", "list AudioDeviceName 1",
                     "list AudioLineCount", "list AudioLineName 0"}));
    EXPECT_EQ(form.controls.VideoCodecs_cmb_List, engines.videoCodecs);
    EXPECT_EQ(form.controls.VideoCodecs_cmb, "Microsoft Video 1");
    EXPECT_EQ(form.controls.cmbAudioDevicesX, "");
}

TEST_F(CaptureOptionsTest, AskForTheListsOnceWhileTheFormIsLoaded)
{
    form.whileModal = [&] { options.Command1_Click(); };
    options.toolbar_options();
    options.toolbar_options();
    EXPECT_EQ(log.count("list VideoCodecCount"), 1);
}

TEST_F(CaptureOptionsTest, FillTheCodecListAnewAfterCancel)
{
    form.whileModal = [&] { options.Command2_Click(); };
    options.toolbar_options();
    engines.videoCodecs = {"Another"};
    options.toolbar_options();
    EXPECT_EQ(form.controls.VideoCodecs_cmb_List, Calls{"Another"});
}

TEST_F(CaptureOptionsTest, DoNotComeUpWhereTheEngineCannotBeAskedUntilItCan)
{
    for (const char* failing : {"create", "AudioLineCount"}) {
        engines.failing.names = {failing};
        EXPECT_THROW(options.toolbar_options(), std::runtime_error) << failing;
        EXPECT_THROW(options.showFromTaskPane(), std::runtime_error) << failing;
        EXPECT_FALSE(form.visible) << failing;
        EXPECT_TRUE(window.formEnabled) << failing;
    }
    engines.failing.names.clear();
    options.toolbar_options();
    EXPECT_TRUE(form.visible);
    EXPECT_EQ(form.controls.VideoCodecs_cmb_List, engines.videoCodecs);
}

TEST_F(CaptureOptionsTest, AreTheStoredValuesForARecordingWhoseEngineCannotBeAsked)
{
    engines.failing.names = {"VideoCodecCount"};
    EXPECT_EQ(options.controls().settings, capture::CaptureSettings{});
}

struct Step {
    const char* before;
    const char* down;
    const char* up;
};

TEST_F(CaptureOptionsTest, StepTheFrameRateByOneAndStopOnlyAtAnExactMatch)
{
    for (const auto& [before, down, up] :
         {Step{"24", "23", "25"}, Step{"12", "12", "13"}, Step{"50", "49", "50"}, Step{"11", "10", "12"},
          Step{"51", "50", "52"}, Step{"12.5", "11.5", "13.5"}, Step{"0", "-1", "1"}, Step{"-3", "-4", "-2"},
          Step{"", "-1", "1"}, Step{"fast", "-1", "1"}, Step{"30 fps", "29", "31"},
          Step{"12 fps", "12 fps", "13"}}) {
        options.txtfps_Change(before);
        options.UpDown1_DownClick();
        EXPECT_EQ(fps(), down) << before;
        options.txtfps_Change(before);
        options.UpDown1_UpClick();
        EXPECT_EQ(fps(), up) << before;
    }
}

/// The toolkit sets the locale of the desktop, whose numbers may have a comma.
TEST_F(CaptureOptionsTest, WriteNumbersWithAPointWhateverTheLocale)
{
    const tests::CommaLocale locale;
    if (!locale.isSet())
        GTEST_SKIP() << "there is nothing to make a locale from";
    options.txtfps_Change("23.5");
    options.UpDown1_UpClick();
    EXPECT_EQ(fps(), "24.5");
    options.UpDown1_UpClick();
    EXPECT_EQ(fps(), "25.5");
    options.sizeClick(ShowSize::l_opt);
    EXPECT_EQ(options.controls().SS_txt, "1.09");
}

TEST_F(CaptureOptionsTest, CountTheFrameRateDownFromBelowTheLowest)
{
    options.txtfps_Change("11");
    for (int i = 0; i < 15; ++i)
        options.UpDown1_DownClick();
    EXPECT_EQ(fps(), "-4");
}

TEST_F(CaptureOptionsTest, StepTheBitrateByAHundredWithinItsBounds)
{
    for (const auto& [before, down, up] :
         {Step{"800", "700", "900"}, Step{"700", "700", "800"}, Step{"1500", "1400", "1500"},
          Step{"1450", "1350", "1550"}, Step{"1550", "1450", "1550"}, Step{"750", "650", "850"},
          Step{"600", "600", "700"}, Step{"", "", "100"}, Step{"much", "much", "100"}}) {
        options.bitrate_txt_Change(before);
        options.UpDown2_DownClick();
        EXPECT_EQ(bitrate(), down) << before;
        options.bitrate_txt_Change(before);
        options.UpDown2_UpClick();
        EXPECT_EQ(bitrate(), up) << before;
    }
}

TEST_F(CaptureOptionsTest, ShowEachStep)
{
    options.UpDown1_UpClick();
    EXPECT_EQ(form.controls.settings.txtfps, "25");
    options.UpDown2_UpClick();
    EXPECT_EQ(form.controls.settings.bitrate_txt, "800");
}

TEST_F(CaptureOptionsTest, Ok_KeepsWhatWasSetAndMakesTheShapeTransparent)
{
    form.whileModal = [&] {
        options.txtfps_Change("30");
        options.Command1_Click();
    };
    options.toolbar_options();
    EXPECT_FALSE(form.visible);
    EXPECT_TRUE(window.shapeTransparent);
    EXPECT_EQ(fps(), "30");
    form.whileModal = [] {};
    options.toolbar_options();
    EXPECT_EQ(form.controls.settings.txtfps, "30");
}

TEST_F(CaptureOptionsTest, Cancel_ForgetsAlsoWhatAnEarlierOkKept)
{
    form.whileModal = [&] {
        options.txtfps_Change("30");
        options.highlightCursor_chk_Click(true);
        options.Command1_Click();
    };
    options.toolbar_options();
    form.whileModal = [&] { options.Command2_Click(); };
    options.toolbar_options();
    EXPECT_FALSE(form.visible);
    EXPECT_EQ(options.controls().settings, capture::CaptureSettings{});
}

TEST_F(CaptureOptionsTest, Cancel_LetsTheMainFormAnswerAgain)
{
    options.showFromTaskPane();
    EXPECT_FALSE(window.formEnabled);
    options.Command2_Click();
    EXPECT_TRUE(window.formEnabled);
}

TEST_F(CaptureOptionsTest, Cancel_KeepsTheEngine)
{
    form.whileModal = [&] { options.Command2_Click(); };
    options.toolbar_options();
    options.toolbar_options();
    EXPECT_EQ(engines.created, 1);
}

TEST_F(CaptureOptionsTest, OfTheTaskPane_StandAboveAMainFormThatDoesNotAnswer)
{
    options.showFromTaskPane();
    EXPECT_TRUE(form.visible);
    EXPECT_TRUE(form.topMost);
    EXPECT_EQ(log.count("CaptureOptions_frm modal"), 0);
    EXPECT_FALSE(window.formEnabled);
}

TEST_F(CaptureOptionsTest, OfTheTaskPane_LeaveTheMainFormAsItIsAtOk)
{
    options.showFromTaskPane();
    options.Command1_Click();
    EXPECT_FALSE(form.visible);
    EXPECT_FALSE(window.formEnabled);
}

TEST_F(CaptureOptionsTest, DoNotOpenWhileRecordingButInAPause)
{
    fields.recordState = "record";
    options.toolbar_options();
    EXPECT_FALSE(form.visible);
    EXPECT_EQ(engines.created, 0);
    fields.recordState = "pause";
    options.toolbar_options();
    EXPECT_TRUE(form.visible);
}

TEST_F(CaptureOptionsTest, WriteTheFactorOfTheChosenSize)
{
    options.sizeClick(ShowSize::l_opt);
    EXPECT_EQ(options.controls().SS_txt, "1.09");
    options.sizeClick(ShowSize::s_opt);
    EXPECT_EQ(options.controls().SS_txt, "0.769230769230769");
    options.sizeClick(ShowSize::n_opt);
    EXPECT_EQ(options.controls().SS_txt, "1");
}

constexpr const char* kHelp[] = {
    "Typically, Quillora Recorder records at 24 frames per second (fps) to improve the quality of video "
    "output and give the appearance of seamless movement. When increasing frame rate, we recommend that you "
    "also keep in mind how it will affect the overall recording file size. Range 12 - 50.",
    "Bitrate is the number of bits used per unit of playback time to represent a continuous video after "
    "source coding (data compression). Typically, Quillora Recorder records at 700 Kbps. The encoding "
    "bitrate of WMV video file is the size of a video file in bytes divided by the playback time of the "
    "recording (in seconds), multiplied by eight. A higher bit rate means that the video has more "
    "information.",
    "Capture and include your mouse cursor movements in the video recording. Check only if you need it. "
    "Capturing the mouse cursor uses substantial CPU resources and has lower priority than capturing the "
    "slides",
    "A codec is software that is used to compress or decompress a digital media file, such as a song or "
    "video. Windows Media Player and other programs use codecs to play and create digital media files. There "
    "are hundreds of audio and video codecs in use today. Some have been created by Microsoft, but the vast "
    "majority of codecs have been created by other companies, organizations, or individuals. By default, "
    "Quillora Recorder uses Microsoft Video 1 to incode AVI videos."};

TEST_F(CaptureOptionsTest, ExplainEachSettingInABox)
{
    options.Picture6_Click();
    options.Picture1_Click();
    options.Picture4_Click();
    options.Picture2_Click();
    ASSERT_EQ(boxes.shown.size(), std::size(kHelp));
    for (std::size_t i = 0; i < std::size(kHelp); ++i) {
        EXPECT_EQ(boxes.shown[i].text, kHelp[i]);
        EXPECT_EQ(boxes.shown[i].icon, base::BoxIcon::information);
        EXPECT_EQ(boxes.shown[i].buttons, base::BoxButtons::ok);
        EXPECT_EQ(boxes.shown[i].title, "");
    }
}

TEST_F(CaptureOptionsTest, SpeakArabicUntilTheFormIsUnloaded)
{
    options.langchng();
    EXPECT_EQ(form.controls.captions, Language::arabic);
    EXPECT_EQ(fields.lang_txt, "eng");
    options.Command2_Click();
    EXPECT_EQ(options.controls().captions, Language::english);
}

TEST(OptionCaptions, AreTheseInBothLanguages)
{
    const OptionCaption captions[] = {
        {"CaptureOptions_frm", "Recording Options", "إعدادات الفيديو"},
        {"Frame2", " PowerPoint Options ", "خيارات البوربوينت"},
        {"Label11",
         "Set these options before opining the PowerPoint presentations or open the presentation file "
         "again.",
         "حدد هذه الخيارات قبل فتح العرض أو إعد فتحه مرة أخرى"},
        {"anim_chk", "Show with Animation", "العرض مع الرسوم المتحركة"},
        {"narration_chk", "Show with Narration", "العرض مع التعليق الصوتي"},
        {"timing_chk", "Use Slide Timing", "استخدم مؤقت الشرائح"},
        {"Frame1", " Video Options ", "خيارات الفيديو"},
        {"Label2", "Video Recording Frame Rate (fps)", "عدد الإطارت في الثانية"},
        {"Label1", "WMV Video Bitrate (Kbps)", "معدل بث الفيديو WMV"},
        {"Label6(0)", "AVI Codecs Available", "برنامج ضغط الفيديو AVI المستخدم"},
        {"capturecursor_chk", "Capture Mouse Cursor", "إلتقاط مؤشر الفأرة"},
        {"highlightCursor_chk", "Highlight Mouse Cursor", "تظليل المؤشر"},
        {"Frame4", " Camera Options ", "خيارات الكاميرا"},
        {"Label6(1)", "Brightness", "السطوع"},
        {"Label6(2)", "Contrast", "التباين"},
        {"Label6(3)", "Hue", "درجة اللون"},
        {"Label6(4)", "Zoom", "تكبير"},
        {"Command1", "OK", "موافق"},
        {"Command2", "Cancel", "إلغاء"}};
    EXPECT_EQ(optionCaptions().size(), std::size(captions));
    for (const auto& caption : captions) {
        EXPECT_EQ(optionCaption(caption.control, Language::english), caption.english);
        EXPECT_EQ(optionCaption(caption.control, Language::arabic), caption.arabic);
    }
    EXPECT_THROW(optionCaption("Label99", Language::english), std::out_of_range);
}

} // namespace
} // namespace quillora::session
