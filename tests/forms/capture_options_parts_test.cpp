// The recording options, joined as the program joins them.

#include "app/capture_options_parts.h"

#include "tests/forms/form_fixture.h"
#include "tests/support/fake_capture_engine.h"
#include "tests/support/fake_message_boxes.h"

#include <QAbstractButton>
#include <QApplication>
#include <QComboBox>
#include <QLineEdit>
#include <QSignalSpy>
#include <QTest>
#include <QTimer>

#include <algorithm>

using namespace quillora;
using capture::CaptureSettings;

namespace {

class CaptureOptionsPartsTest : public tests::FormTest {
  protected:
    const session::OptionControls& controls() { return parts.logic().controls(); }

    QWidget& dialog() { return *tests::control(form, "CaptureOptions_frm"); }
    template <typename T = QWidget>
    T* control(const char* name)
    {
        return tests::control<T>(dialog(), name);
    }
    void click(const char* name) { control<QAbstractButton>(name)->click(); }
    void step(const char* stepper, const char* way)
    {
        tests::control<QAbstractButton>(*control(stepper), way)->click();
    }
    void write(const char* box, const char* text)
    {
        control<QLineEdit>(box)->selectAll();
        QTest::keyClicks(control(box), text);
    }
    std::string textOf(const char* box) { return control<QLineEdit>(box)->text().toStdString(); }

    /// Gives the command for the options, and does @p then while the dialog keeps it from returning.
    void chooseModally(std::function<void()> then)
    {
        wasModal = false;
        QTimer::singleShot(0, &form, [this, then = std::move(then)] {
            const QWidget* modal = QApplication::activeModalWidget();
            wasModal = modal != nullptr && modal->objectName() == "CaptureOptions_frm";
            if (!wasModal)
                return;
            then();
            // One that nothing closes would keep the command for ever.
            dialog().hide();
        });
        parts.logic().toolbar_options();
        EXPECT_TRUE(wasModal);
    }

    bool isAbove()
    {
        const auto states = probe.atomList(std::uint32_t(dialog().winId()), "_NET_WM_STATE");
        return std::ranges::count(states, "_NET_WM_STATE_ABOVE") > 0;
    }
    bool mainFormAnswers()
    {
        QSignalSpy clicks(&form, &forms::Vantry_frm::Image3_Click);
        QTest::mouseClick(find("Image3"), Qt::LeftButton);
        return clicks.count() == 1;
    }

    tests::CallLog log;
    tests::FakeMessageBoxes boxes{log};
    tests::FakeCaptureEngineFactory engines{log};
    session::CaptureEngineField captureEngine{engines};
    session::SessionFields fields;
    bool wasModal = false;
    app::CaptureOptionsParts parts{
        {.fields = fields, .window = form, .hints = hints, .boxes = boxes, .captureEngine = captureEngine}};
};

} // namespace

TEST_F(CaptureOptionsPartsTest, TakeUpEachNumberThatIsTyped)
{
    parts.logic().showFromTaskPane();
    write("txtfps", "30");
    EXPECT_EQ(controls().settings, (CaptureSettings{.txtfps = "30"}));
    write("bitrate_txt", "900");
    EXPECT_EQ(controls().settings, (CaptureSettings{.txtfps = "30", .bitrate_txt = "900"}));
}

TEST_F(CaptureOptionsPartsTest, StepEachNumberUpAndDownByItsOwnButtons)
{
    parts.logic().showFromTaskPane();
    step("UpDown1", "up");
    EXPECT_EQ(controls().settings, (CaptureSettings{.txtfps = "25"}));
    EXPECT_EQ(textOf("txtfps"), "25");
    step("UpDown2", "up");
    EXPECT_EQ(controls().settings, (CaptureSettings{.txtfps = "25", .bitrate_txt = "800"}));
    EXPECT_EQ(textOf("bitrate_txt"), "800");
    step("UpDown1", "down");
    EXPECT_EQ(controls().settings, (CaptureSettings{.txtfps = "24", .bitrate_txt = "800"}));
    step("UpDown2", "down");
    EXPECT_EQ(controls().settings, CaptureSettings{});
}

TEST_F(CaptureOptionsPartsTest, TakeUpEachCheckBox)
{
    parts.logic().showFromTaskPane();
    click("capturecursor_chk");
    EXPECT_EQ(controls().settings, (CaptureSettings{.capturecursor_chk = false}));
    click("highlightCursor_chk");
    EXPECT_EQ(controls().settings,
              (CaptureSettings{.capturecursor_chk = false, .highlightCursor_chk = true}));
}

TEST_F(CaptureOptionsPartsTest, TakeUpTheChosenSizeAndShowItsFactor)
{
    parts.logic().showFromTaskPane();
    for (const auto& [size, factor] :
         {std::pair{"s_opt", "0.769230769230769"}, std::pair{"l_opt", "1.09"}, std::pair{"n_opt", "1"}}) {
        click(size);
        EXPECT_EQ(controls().SS_txt, factor) << size;
        EXPECT_EQ(textOf("SS_txt"), factor) << size;
    }
}

TEST_F(CaptureOptionsPartsTest, ExplainTheSettingThatEachPictureStandsBeside)
{
    parts.logic().showFromTaskPane();
    const std::pair<const char*, const char*> helps[] = {
        {"Picture6", "Typically, Quillora Recorder records at 24 frames per second"},
        {"Picture1", "Bitrate is the number of bits"},
        {"Picture4", "Capture and include your mouse cursor movements"},
        {"Picture2", "A codec is software"}};
    for (const auto& [picture, beginning] : helps) {
        boxes.shown.clear();
        click(picture);
        ASSERT_EQ(boxes.shown.size(), 1U) << picture;
        EXPECT_TRUE(boxes.shown[0].text.starts_with(beginning)) << picture;
    }
}

TEST_F(CaptureOptionsPartsTest, ShowTheCodecsOfTheEngine)
{
    parts.logic().showFromTaskPane();
    ASSERT_EQ(control<QComboBox>("VideoCodecs_cmb")->count(), int(engines.videoCodecs.size()));
    EXPECT_EQ(control<QComboBox>("VideoCodecs_cmb")->itemText(0).toStdString(), engines.videoCodecs[0]);
}

TEST_F(CaptureOptionsPartsTest, KeepTheCommandUntilOkWhichKeepsWhatWasSet)
{
    chooseModally([&] {
        write("txtfps", "30");
        click("Command1");
        EXPECT_FALSE(dialog().isVisible());
    });
    EXPECT_EQ(controls().settings.txtfps, "30");
    chooseModally([&] { EXPECT_EQ(textOf("txtfps"), "30"); });
}

TEST_F(CaptureOptionsPartsTest, KeepTheCommandUntilCancelWhichForgetsWhatWasSet)
{
    chooseModally([&] {
        write("txtfps", "30");
        click("Command2");
        EXPECT_FALSE(dialog().isVisible());
    });
    EXPECT_EQ(controls().settings, CaptureSettings{});
    chooseModally([&] { EXPECT_EQ(textOf("txtfps"), "24"); });
}

TEST_F(CaptureOptionsPartsTest, AreNotShownTwiceAtOnce)
{
    chooseModally([&] { EXPECT_THROW(parts.logic().toolbar_options(), std::runtime_error); });
}

TEST_F(CaptureOptionsPartsTest, FromTheTaskPane_StandAboveAMainFormThatDoesNotAnswerUntilCancel)
{
    ASSERT_TRUE(mainFormAnswers());
    parts.logic().showFromTaskPane();
    EXPECT_TRUE(dialog().isVisible());
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
    EXPECT_TRUE(tests::waitUntil([&] { return isAbove(); }));
    EXPECT_FALSE(mainFormAnswers());
    click("Command2");
    EXPECT_FALSE(dialog().isVisible());
    EXPECT_TRUE(mainFormAnswers());
}

TEST_F(CaptureOptionsPartsTest, ChangeTheirLanguageWhileTheyAreShown)
{
    parts.logic().showFromTaskPane();
    parts.logic().langchng();
    EXPECT_EQ(control<QAbstractButton>("Command1")->text(), QString::fromUtf8("موافق"));
}
