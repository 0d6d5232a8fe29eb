#include "app/microphone_parts.h"

#include "tests/forms/form_fixture.h"
#include "tests/support/fake_message_boxes.h"
#include "tests/support/private_sound_server.h"

#include <QApplication>
#include <QComboBox>
#include <QLabel>
#include <QTest>
#include <QTimer>

#include <cstdlib>
#include <optional>

using namespace quillora;

namespace {

constexpr const char* kMicrophone = "module-null-source source_name=mic description=Microphone";
constexpr const char* kWebcam = "module-null-source source_name=cam description=Webcam";

class Microphone : public tests::FormTest {
  protected:
    Microphone() { ::setenv("PULSE_SERVER", server.address().c_str(), 1); }
    ~Microphone() override { ::unsetenv("PULSE_SERVER"); }

    void make() { parts.emplace(app::MicrophoneParts::Needs{fields, form, boxes, messages}); }

    /// Does @p action while the dialog is shown, then closes it.
    void whenShown(std::function<void(QWidget&)> action)
    {
        QTimer::singleShot(0, &form, [this, action = std::move(action)] {
            QWidget* dialog = QApplication::activeModalWidget();
            wasShown = dialog != nullptr && dialog->objectName() == "mic_frm";
            if (!wasShown)
                return;
            action(*dialog);
            dialog->close();
        });
    }

    tests::PrivateSoundServer server{{kMicrophone, kWebcam}};
    tests::CallLog log;
    tests::FakeMessageBoxes boxes{log};
    app::MessageParts messages{boxes};
    session::SessionFields fields;
    std::optional<app::MicrophoneParts> parts;
    bool wasShown = false;
};

} // namespace

TEST_F(Microphone, TellsTheLevelOfTheDefaultInputWithoutShowingTheDialog)
{
    ASSERT_TRUE(server.control({"set-source-volume", "mic", "58981"}));
    make();
    EXPECT_EQ(parts->lblVolPer(), "89%");
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
    EXPECT_TRUE(boxes.shown.empty());
}

TEST_F(Microphone, ThatTheDesktopSetToNinetyPercentIsAtNinety)
{
    for (const char* volume : {"90%", "58982"}) {
        ASSERT_TRUE(server.control({"set-source-volume", "mic", volume}));
        make();
        EXPECT_EQ(parts->lblVolPer(), "90%") << volume;
    }
}

TEST_F(Microphone, OfAFreshServerIsAtItsFullLevel)
{
    make();
    EXPECT_EQ(parts->lblVolPer(), "100%");
}

TEST_F(Microphone, IconShowsDevicesLinesAndLevel)
{
    make();
    whenShown([](QWidget& dialog) {
        const auto* cboDev = dialog.findChild<QComboBox*>("cboDev");
        ASSERT_EQ(cboDev->count(), 2);
        EXPECT_EQ(cboDev->itemText(0), "Microphone");
        EXPECT_EQ(cboDev->itemText(1), "Webcam");
        EXPECT_EQ(dialog.findChild<QComboBox*>("cboRecLine")->currentText(), "Microphone");
        EXPECT_EQ(dialog.findChild<QLabel*>("lblVolPer")->text(), "100%");
    });
    QTest::mouseClick(find("Image3"), Qt::LeftButton);
    EXPECT_TRUE(wasShown);
}

TEST_F(Microphone, SliderSetsTheVolumeOfTheServer)
{
    make();
    whenShown([](QWidget& dialog) {
        QTest::keyClick(dialog.findChild<QWidget*>("sldVol"), Qt::Key_Home);
        EXPECT_EQ(dialog.findChild<QLabel*>("lblVolPer")->text(), "0%");
    });
    parts->showModal();
    ASSERT_TRUE(wasShown);
    EXPECT_EQ(audio::PulseServer(server.address()).input("mic")->volumes.front(), 0U);
    EXPECT_EQ(parts->lblVolPer(), "0%");
}

TEST_F(Microphone, IconDoesNothingWhileARecordingRuns)
{
    make();
    fields.recordState = "record";
    whenShown([](QWidget&) {});
    QTest::mouseClick(find("Image3"), Qt::LeftButton);
    tests::settle(50);
    EXPECT_FALSE(wasShown);
}

TEST_F(Microphone, WithoutASoundServerKeepsItsDesignedText)
{
    server.kill();
    make();
    EXPECT_EQ(parts->lblVolPer(), "100%");
    EXPECT_TRUE(boxes.shown.empty());
}

TEST_F(Microphone, OfAServerThatHangsKeepsItsDesignedText)
{
    server.freeze();
    make();
    EXPECT_EQ(parts->lblVolPer(), "100%");
    server.thaw();
}

TEST_F(Microphone, ThatIsPluggedInLaterIsFound)
{
    server.kill();
    make();
    EXPECT_EQ(parts->lblVolPer(), "100%");
    server.restart();
    ASSERT_TRUE(server.control({"set-source-volume", "mic", "50%"}));
    EXPECT_EQ(parts->lblVolPer(), "50%");
}

TEST_F(Microphone, ThatVanishesWhileTheDialogIsOpenGivesAWarning)
{
    make();
    whenShown([&](QWidget& dialog) {
        ASSERT_TRUE(server.control({"unload-module", "module-null-source"}));
        auto* cboDev = dialog.findChild<QComboBox*>("cboDev");
        QTest::keyClick(cboDev, Qt::Key_Down);
        QTest::keyClick(dialog.findChild<QWidget*>("sldVol"), Qt::Key_Left);
    });
    parts->showModal();
    ASSERT_TRUE(wasShown);
    ASSERT_FALSE(boxes.shown.empty());
    EXPECT_EQ(boxes.shown.front().text, "Couldn't select device!");
}

TEST_F(Microphone, DialogIsNotShownTwiceAtOnce)
{
    make();
    whenShown([&](QWidget&) { EXPECT_THROW(parts->showModal(), std::runtime_error); });
    parts->showModal();
    EXPECT_TRUE(wasShown);
}
