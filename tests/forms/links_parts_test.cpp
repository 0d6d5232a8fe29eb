#include "app/links_parts.h"

#include "panels/service_addresses.h"
#include "tests/forms/form_fixture.h"
#include "tests/forms/stand_in_desktop.h"
#include "tests/support/fake_message_boxes.h"

#include <QAbstractButton>
#include <QTest>
#include <QTimer>

using namespace quillora;
using tests::waitUntil;

namespace {

class LinksPartsTest : public tests::FormTest {
  protected:
    /// Shows the About dialog by its command, and does @p then once it is there; returns when it has gone.
    void show(const std::function<void(QWidget& about)>& then)
    {
        QTimer::singleShot(0, &form, [this, then] {
            auto* about = find("frmAbout");
            ASSERT_NE(about, nullptr);
            EXPECT_TRUE(waitUntil([&] { return about->isVisible(); }));
            then(*about);
        });
        operations.run(session::Operation::showAbout);
    }

    static void click(QWidget& window, const char* name)
    {
        auto* button = window.findChild<QAbstractButton*>(name);
        ASSERT_NE(button, nullptr) << name;
        QTest::mouseClick(button, Qt::LeftButton);
    }

    tests::CallLog log;
    tests::FakeMessageBoxes boxes{log};
    tests::StandInDesktop desktop{folder.path()};
    session::OperationTable operations;
    app::LinksParts links{{.window = form,
                           .boxes = boxes,
                           .operations = operations,
                           .version = "Version 3.13.0",
                           .documents = folder.path()}};
};

} // namespace

TEST_F(LinksPartsTest, ClosingTheAboutDialogEnablesTheMainFormAndItsOkDoesNot)
{
    int clicks = 0;
    QObject::connect(&form, &forms::Vantry_frm::main_TB_ButtonClick, &form, [&] { ++clicks; });
    form.setFormEnabled(false);
    show([](QWidget& about) { click(about, "cmdOK"); });
    click(form, "main_TB_open");
    EXPECT_EQ(clicks, 0);
    show([](QWidget& about) { about.close(); });
    click(form, "main_TB_open");
    EXPECT_EQ(clicks, 1);
}

TEST_F(LinksPartsTest, TheMakersLineOpensTheMakersPage)
{
    desktop.standIn("xdg-open");
    show([](QWidget& about) {
        click(about, "Label1");
        about.hide();
    });
    EXPECT_TRUE(waitUntil([&] { return desktop.heard() == "xdg-open:" + panels::makersUrl() + "\n"; }));
}
