#include "forms/capture_options_frm.h"

#include "session/option_captions.h"
#include "tests/forms/dialog_fixture.h"

#include <QAbstractButton>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRawFont>
#include <QSignalSpy>
#include <QTest>

#include <algorithm>
#include <array>

using namespace quillora;
using forms::CaptureOptions_frm;
using session::Language;
using session::OptionControls;

namespace {

class CaptureOptionsForm : public tests::DialogTest<CaptureOptions_frm> {
  protected:
    CaptureOptionsForm() { showDialog(); }

    void step(const char* stepper, const char* way)
    {
        tests::control<QAbstractButton>(*control(stepper), way)->click();
    }
};

TEST_F(CaptureOptionsForm, ShowsTheStoredValues)
{
    ASSERT_TRUE(dialogShown);
    EXPECT_EQ(dialog.windowTitle(), "Recording Options");
    EXPECT_EQ(control<QLineEdit>("txtfps")->text(), "24");
    EXPECT_EQ(control<QLineEdit>("bitrate_txt")->text(), "700");
    EXPECT_TRUE(control<QAbstractButton>("capturecursor_chk")->isChecked());
    EXPECT_FALSE(control<QAbstractButton>("highlightCursor_chk")->isChecked());
    EXPECT_EQ(control<QPushButton>("Command1")->text(), "OK");
    EXPECT_EQ(control<QPushButton>("Command2")->text(), "Cancel");
    EXPECT_TRUE(control<QPushButton>("Command1")->isDefault());
}

TEST_F(CaptureOptionsForm, SendsWhatThePresenterTypesAndChecks)
{
    QSignalSpy fps(&dialog, &CaptureOptions_frm::txtfps_Change);
    QSignalSpy bitrate(&dialog, &CaptureOptions_frm::bitrate_txt_Change);
    QSignalSpy cursor(&dialog, &CaptureOptions_frm::capturecursor_chk_Click);
    QSignalSpy highlight(&dialog, &CaptureOptions_frm::highlightCursor_chk_Click);
    auto* box = control<QLineEdit>("txtfps");
    box->selectAll();
    QTest::keyClicks(box, "30");
    control<QLineEdit>("bitrate_txt")->setText("900");
    click("capturecursor_chk");
    click("highlightCursor_chk");
    EXPECT_EQ(fps.last().at(0).value<std::string>(), "30");
    EXPECT_EQ(bitrate.last().at(0).value<std::string>(), "900");
    EXPECT_EQ(cursor.last().at(0).toBool(), false);
    EXPECT_EQ(highlight.last().at(0).toBool(), true);
}

TEST_F(CaptureOptionsForm, StepsByTheButtonsAndTheArrowKeys)
{
    QSignalSpy fpsUp(&dialog, &CaptureOptions_frm::UpDown1_UpClick);
    QSignalSpy fpsDown(&dialog, &CaptureOptions_frm::UpDown1_DownClick);
    QSignalSpy bitrateUp(&dialog, &CaptureOptions_frm::UpDown2_UpClick);
    QSignalSpy bitrateDown(&dialog, &CaptureOptions_frm::UpDown2_DownClick);
    using Counts = std::array<qsizetype, 4>;
    const auto counts = [&] {
        return Counts{fpsUp.count(), fpsDown.count(), bitrateUp.count(), bitrateDown.count()};
    };
    step("UpDown1", "up");
    EXPECT_EQ(counts(), (Counts{1, 0, 0, 0}));
    step("UpDown1", "down");
    EXPECT_EQ(counts(), (Counts{1, 1, 0, 0}));
    step("UpDown2", "up");
    EXPECT_EQ(counts(), (Counts{1, 1, 1, 0}));
    step("UpDown2", "down");
    EXPECT_EQ(counts(), (Counts{1, 1, 1, 1}));
    QTest::keyClick(control<QLineEdit>("txtfps"), Qt::Key_Down);
    EXPECT_EQ(counts(), (Counts{1, 2, 1, 1}));
    QTest::keyClick(control<QLineEdit>("bitrate_txt"), Qt::Key_Up);
    EXPECT_EQ(counts(), (Counts{1, 2, 2, 1}));
    EXPECT_EQ(control<QLineEdit>("txtfps")->text(), "24");
}

TEST_F(CaptureOptionsForm, ShowsChangedControlsWithoutSendingThemBack)
{
    QSignalSpy fps(&dialog, &CaptureOptions_frm::txtfps_Change);
    QSignalSpy cursor(&dialog, &CaptureOptions_frm::capturecursor_chk_Click);
    OptionControls controls;
    controls.settings = {.txtfps = "-4", .bitrate_txt = "1550", .capturecursor_chk = false};
    dialog.showControls(controls);
    EXPECT_EQ(control<QLineEdit>("txtfps")->text(), "-4");
    EXPECT_EQ(control<QLineEdit>("bitrate_txt")->text(), "1550");
    EXPECT_FALSE(control<QAbstractButton>("capturecursor_chk")->isChecked());
    EXPECT_EQ(fps.count() + cursor.count(), 0);
}

TEST_F(CaptureOptionsForm, LeavesTheClosingToOthers)
{
    QSignalSpy ok(&dialog, &CaptureOptions_frm::Command1_Click);
    QSignalSpy cancel(&dialog, &CaptureOptions_frm::Command2_Click);
    click("Command1");
    click("Command2");
    QTest::keyClick(&dialog, Qt::Key_Escape);
    dialog.close();
    EXPECT_EQ(ok.count(), 1);
    EXPECT_EQ(cancel.count(), 3);
    EXPECT_TRUE(dialog.isVisible());
    QTest::keyClick(control<QLineEdit>("txtfps"), Qt::Key_Return);
    EXPECT_EQ(ok.count(), 2);
}

TEST_F(CaptureOptionsForm, AsksForTheHelpOfEachPicture)
{
    QSignalSpy help6(&dialog, &CaptureOptions_frm::Picture6_Click);
    QSignalSpy help1(&dialog, &CaptureOptions_frm::Picture1_Click);
    QSignalSpy help4(&dialog, &CaptureOptions_frm::Picture4_Click);
    QSignalSpy help2(&dialog, &CaptureOptions_frm::Picture2_Click);
    const std::pair<const char*, QSignalSpy&> helps[] = {
        {"Picture6", help6}, {"Picture1", help1}, {"Picture4", help4}, {"Picture2", help2}};
    qsizetype clicks = 0;
    for (const auto& [name, help] : helps) {
        click(name);
        EXPECT_EQ(help.count(), 1) << name;
        EXPECT_EQ(help6.count() + help1.count() + help4.count() + help2.count(), ++clicks) << name;
    }
}

TEST_F(CaptureOptionsForm, HasTheControlsThatNothingReadsOutOfReach)
{
    OptionControls controls;
    controls.VideoCodecs_cmb_List = {"One", "Two"};
    dialog.showControls(controls);
    auto* codecs = control<QComboBox>("VideoCodecs_cmb");
    EXPECT_EQ(codecs->count(), 2);
    EXPECT_EQ(codecs->currentText(), "Microsoft Video 1");
    EXPECT_EQ(control<QLineEdit>("FPath_txt")->text(), "FPath_txt");
    EXPECT_TRUE(control<QAbstractButton>("chkcapwindow")->isChecked());
    EXPECT_TRUE(control<QAbstractButton>("n_opt")->isChecked());
    for (const char* name : {"VideoCodecs_cmb", "cmbAudioDevicesX",
                             "cmbAudioLinesX",  "anim_chk",
                             "narration_chk",   "timing_chk",
                             "s_opt",           "n_opt",
                             "l_opt",           "SS_txt",
                             "chkcapwindow",    "txtwinhandle",
                             "txtleft",         "txtTop",
                             "txtwidth",        "txtheight",
                             "Slider1(0)",      "Slider1(3)",
                             "Check1",          "txtvolume1",
                             "FPath_txt",       "h_txt",
                             "w_txt",           "Picture2",
                             "Frame2",          "Frame4"}) {
        ASSERT_NE(control(name), nullptr) << name;
        EXPECT_FALSE(control(name)->isVisible()) << name;
    }
}

TEST_F(CaptureOptionsForm, LabelsTheControlsThatNothingReads)
{
    const std::pair<const char*, const char*> labels[] = {{"cmbAudioDevicesX", "Audio Device"},
                                                          {"cmbAudioLinesX", "Audio Line"},
                                                          {"txtwinhandle", "Window Handle "}};
    for (const auto& [name, text] : labels) {
        const auto all = dialog.findChildren<QLabel*>();
        const auto found = std::ranges::find(all, control(name), &QLabel::buddy);
        ASSERT_NE(found, all.end()) << name;
        EXPECT_EQ((*found)->text(), text);
        EXPECT_FALSE((*found)->isVisible()) << name;
    }
    EXPECT_EQ(control<QAbstractButton>("chkcapwindow")->text(), "Capture specific window");
    EXPECT_EQ(control<QAbstractButton>("Check1")->text(), "Use current system volume");
    EXPECT_EQ(control<QAbstractButton>("s_opt")->text(), "320x240");
    EXPECT_EQ(control<QAbstractButton>("n_opt")->text(), "640x480");
    EXPECT_EQ(control<QAbstractButton>("l_opt")->text(), "1024x768");
}

TEST_F(CaptureOptionsForm, IsWrittenInFontsThatHaveBothLanguages)
{
    const std::pair<const char*, int> captions[] = {{"Frame1", 13},
                                                    {"Label2", 12},
                                                    {"Label1", 12},
                                                    {"capturecursor_chk", 12},
                                                    {"highlightCursor_chk", 12},
                                                    {"Command1", 11},
                                                    {"Command2", 11}};
    for (const auto& [name, size] : captions) {
        EXPECT_EQ(control(name)->font().families().first(), "Traditional Arabic") << name;
        EXPECT_EQ(control(name)->font().pixelSize(), size) << name;
    }
    for (const char* name : {"txtfps", "bitrate_txt"}) {
        EXPECT_EQ(control(name)->font().families().first(), "Arial") << name;
        EXPECT_EQ(control(name)->font().pixelSize(), 12) << name;
    }
}

TEST_F(CaptureOptionsForm, SpeaksArabicFromRightToLeft)
{
    const auto corner = [&](const char* name) { return control(name)->mapTo(&dialog, QPoint()).x(); };
    EXPECT_LT(corner("Label2"), corner("txtfps"));
    OptionControls controls;
    controls.captions = Language::arabic;
    dialog.showControls(controls);
    tests::settle();
    EXPECT_EQ(dialog.windowTitle(), QString::fromUtf8("إعدادات الفيديو"));
    EXPECT_EQ(control<QGroupBox>("Frame1")->title(), QString::fromUtf8("خيارات الفيديو"));
    EXPECT_EQ(control<QLabel>("Label6(4)")->text(), QString::fromUtf8("تكبير"));
    EXPECT_EQ(control<QPushButton>("Command1")->text(), QString::fromUtf8("موافق"));
    EXPECT_GT(corner("Label2"), corner("txtfps"));
    EXPECT_GT(corner("Label2"), corner("Picture6"));
    controls.captions = Language::english;
    dialog.showControls(controls);
    EXPECT_EQ(dialog.windowTitle(), "Recording Options");
    EXPECT_EQ(dialog.layoutDirection(), Qt::LeftToRight);
}

/// A glyph that no font has is drawn as the same box for every letter.
TEST_F(CaptureOptionsForm, HasAFontForEveryArabicLetter)
{
    const auto drawn = [&](QChar letter) {
        QImage picture(40, 40, QImage::Format_RGB32);
        picture.fill(Qt::white);
        QPainter painter(&picture);
        painter.setFont(control<QLabel>("Label2")->font());
        painter.drawText(picture.rect(), Qt::AlignCenter, QString(letter));
        return picture;
    };
    const QImage missing = drawn(QChar(0x0530));
    for (const auto& caption : session::optionCaptions())
        for (const QChar letter :
             QString::fromUtf8(caption.arabic.data(), qsizetype(caption.arabic.size()))) {
            if (letter.unicode() < 0x0600)
                continue;
            EXPECT_NE(drawn(letter), missing) << int(letter.unicode());
        }
}

TEST_F(CaptureOptionsForm, NamesEveryControlThatCanBeReached)
{
    for (auto* widget : dialog.findChildren<QWidget*>())
        if (widget->isVisible() && widget->focusPolicy() != Qt::NoFocus) {
            EXPECT_FALSE(widget->accessibleName().isEmpty()) << widget->objectName().toStdString();
        }
    if (const char* folderOfPictures = std::getenv("QUILLORA_PICTURES")) {
        dialog.grab().save(QString(folderOfPictures) + "/options.png");
        OptionControls controls;
        controls.captions = Language::arabic;
        dialog.showControls(controls);
        tests::settle();
        dialog.grab().save(QString(folderOfPictures) + "/options_arabic.png");
    }
}

} // namespace
