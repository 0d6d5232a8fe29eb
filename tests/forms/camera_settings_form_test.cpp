#include "forms/camera_settings_form.h"

#include "tests/forms/form_fixture.h"

#include <QAbstractButton>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QDialog>
#include <QLabel>
#include <QPushButton>
#include <QSlider>
#include <QTest>
#include <QTimer>

#include <algorithm>
#include <limits>

using namespace quillora;
using stage::CameraSetting;
using Kind = CameraSetting::Kind;

namespace {

/// A camera that does what it is told.
class FakeCameraSettings : public stage::CameraSettings {
  public:
    std::vector<CameraSetting> all = {
        {.id = 1, .name = "Saturation", .maximum = 128, .value = 64},
        {.id = 2, .name = "White Balance, Automatic", .kind = Kind::onOff, .maximum = 1, .value = 1},
        {.id = 3,
         .name = "Power Line Frequency",
         .kind = Kind::menu,
         .maximum = 2,
         .value = 1,
         .entries = {{0, "Disabled"}, {1, "50 Hz"}, {2, "60 Hz"}}},
        {.id = 4, .name = "Pan, Reset", .kind = Kind::button},
        {.id = 5,
         .name = "White Balance Temperature",
         .minimum = 2800,
         .maximum = 6500,
         .step = 10,
         .value = 4600,
         .changeable = false},
    };
    std::vector<std::pair<std::uint32_t, int>> changes{};
    int looks = 0;

    std::vector<CameraSetting> settings() const override { return all; }
    void refreshSettings() override { ++looks; }
    void changeSetting(std::uint32_t id, int value) override { changes.emplace_back(id, value); }
};

class CameraSettingsFormTest : public tests::FormTest {
  protected:
    /// Opens the dialog, lets @p act use it, and closes it.
    void withDialog(const std::function<void(QDialog&)>& act)
    {
        bool acted = false;
        QTimer::singleShot(0, &form, [&] {
            tests::waitUntil([] { return QApplication::activeModalWidget() != nullptr; });
            auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
            ASSERT_NE(dialog, nullptr);
            act(*dialog);
            acted = true;
            dialog->reject();
        });
        forms::CameraSettingsForm(form).showModal(camera);
        EXPECT_TRUE(acted);
    }

    FakeCameraSettings camera;
};

using Changes = std::vector<std::pair<std::uint32_t, int>>;

} // namespace

TEST_F(CameraSettingsFormTest, HasAControlForEachSettingByItsKind)
{
    withDialog([&](QDialog& dialog) {
        const auto* number = dialog.findChild<QSlider*>("Saturation");
        ASSERT_NE(number, nullptr);
        EXPECT_EQ(number->maximum(), 128);
        EXPECT_EQ(number->value(), 64);
        ASSERT_NE(dialog.findChild<QCheckBox*>("White Balance, Automatic"), nullptr);
        EXPECT_TRUE(dialog.findChild<QCheckBox*>("White Balance, Automatic")->isChecked());
        const auto* menu = dialog.findChild<QComboBox*>("Power Line Frequency");
        ASSERT_NE(menu, nullptr);
        EXPECT_EQ(menu->count(), 3);
        EXPECT_EQ(menu->currentText(), "50 Hz");
        EXPECT_NE(dialog.findChild<QPushButton*>("Pan, Reset"), nullptr);
        EXPECT_FALSE(dialog.findChild<QSlider*>("White Balance Temperature")->isEnabled());
    });
    EXPECT_EQ(camera.changes, Changes{});
}

TEST_F(CameraSettingsFormTest, ShowsTheDriversNamesLetterByLetter)
{
    camera.all = {{.id = 1, .name = "<b>Gain</b> & Bias", .maximum = 9},
                  {.id = 2, .name = "Black & White", .kind = Kind::onOff, .maximum = 1},
                  {.id = 3, .name = "Pan & Tilt", .kind = Kind::button}};
    withDialog([&](QDialog& dialog) {
        const auto labels = dialog.findChildren<QLabel*>();
        const auto caption = std::ranges::find(labels, "<b>Gain</b> & Bias", &QLabel::text);
        ASSERT_NE(caption, labels.end());
        EXPECT_EQ((*caption)->textFormat(), Qt::PlainText);
        for (const char* name : {"Black & White", "Pan & Tilt"}) {
            const auto* button = dialog.findChild<QAbstractButton*>(name);
            ASSERT_NE(button, nullptr) << name;
            EXPECT_EQ(button->text(), QString(name).replace("&", "&&"));
            EXPECT_TRUE(button->shortcut().isEmpty()) << name;
        }
    });
}

TEST_F(CameraSettingsFormTest, PagesThroughARangeAsWideAsNumbersGo)
{
    camera.all[0].minimum = std::numeric_limits<int>::min();
    camera.all[0].maximum = std::numeric_limits<int>::max();
    withDialog(
        [&](QDialog& dialog) { EXPECT_EQ(dialog.findChild<QSlider*>("Saturation")->pageStep(), 429496729); });
}

TEST_F(CameraSettingsFormTest, TellsTheCameraWhatThePresenterChanges)
{
    withDialog([&](QDialog& dialog) {
        dialog.findChild<QSlider*>("Saturation")->setValue(70);
        dialog.findChild<QCheckBox*>("White Balance, Automatic")->click();
        auto* menu = dialog.findChild<QComboBox*>("Power Line Frequency");
        menu->setFocus();
        QTest::keyClick(menu, Qt::Key_Down);
        dialog.findChild<QPushButton*>("Pan, Reset")->click();
    });
    EXPECT_EQ(camera.changes, (Changes{{1, 70}, {2, 0}, {3, 2}, {4, 1}}));
}

TEST_F(CameraSettingsFormTest, ShowsWhatTheCameraChangesByItself)
{
    withDialog([&](QDialog& dialog) {
        camera.all[0].value = 20;
        camera.all[4].changeable = true;
        EXPECT_TRUE(tests::waitUntil([&] {
            return dialog.findChild<QSlider*>("Saturation")->value() == 20 &&
                   dialog.findChild<QSlider*>("White Balance Temperature")->isEnabled();
        }));
    });
    EXPECT_GT(camera.looks, 0);
    EXPECT_EQ(camera.changes, Changes{});
}

TEST_F(CameraSettingsFormTest, OutlivesACameraThatVanishes)
{
    withDialog([&](QDialog& dialog) {
        camera.all.clear();
        EXPECT_TRUE(tests::waitUntil([&] { return dialog.findChildren<QSlider*>().isEmpty(); }));
        bool told = false;
        for (const auto* label : dialog.findChildren<QLabel*>())
            told = told || label->text() == "The camera has nothing to set.";
        EXPECT_TRUE(told);
    });
}

TEST_F(CameraSettingsFormTest, IsModalAndOwnedByTheWindow)
{
    withDialog([&](QDialog& dialog) {
        EXPECT_TRUE(dialog.isModal());
        EXPECT_EQ(dialog.parentWidget(), &form);
        EXPECT_FALSE(dialog.windowTitle().isEmpty());
    });
}

TEST_F(CameraSettingsFormTest, ScrollsWhereACameraHasMoreThanTheScreenIsHigh)
{
    for (std::uint32_t i = 10; i < 60; ++i)
        camera.all.push_back({.id = i, .name = "Setting " + std::to_string(i), .maximum = 9});
    withDialog([&](QDialog& dialog) { EXPECT_LT(dialog.height(), 600); });
}
