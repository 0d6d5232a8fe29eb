#include "forms/qt_message_boxes.h"

#include "tests/forms/form_fixture.h"

#include <QApplication>
#include <QMessageBox>
#include <QPushButton>
#include <QTest>
#include <QTimer>

using namespace quillora;
using base::BoxAnswer;
using base::BoxButtons;
using base::BoxIcon;

namespace {

class MessageBoxesTest : public tests::FormTest {
  protected:
    /// Shows the box, and does @p act with it once it is there.
    BoxAnswer show(const base::MessageBox& box, const std::function<void(QMessageBox&)>& act)
    {
        QTimer poll;
        QObject::connect(&poll, &QTimer::timeout, [&] {
            auto* shownBox = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
            if (shownBox == nullptr || !shownBox->isVisible())
                return;
            poll.stop();
            act(*shownBox);
        });
        poll.start(20);
        return forms::QtMessageBoxes(form).show(box);
    }
};

} // namespace

TEST_F(MessageBoxesTest, ShowTextTitleAndIcon)
{
    const auto answer =
        show({.text = "first\r\rsecond\r\nthird <b>", .title = "Quillora", .icon = BoxIcon::critical},
             [&](QMessageBox& box) {
                 EXPECT_EQ(box.text(), "first\n\nsecond\nthird <b>");
                 EXPECT_EQ(box.textFormat(), Qt::PlainText);
                 EXPECT_EQ(box.windowTitle(), "Quillora");
                 EXPECT_EQ(box.icon(), QMessageBox::Critical);
                 EXPECT_EQ(box.standardButtons(), QMessageBox::Ok);
                 EXPECT_EQ(box.parentWidget(), &form);
                 QTest::keyClick(&box, Qt::Key_Return);
             });
    EXPECT_EQ(answer, BoxAnswer::ok);
}

TEST_F(MessageBoxesTest, MayHaveNeitherTitleNorIcon)
{
    const auto answer = show({.text = "saved"}, [](QMessageBox& box) {
        EXPECT_EQ(box.windowTitle(), "");
        EXPECT_EQ(box.icon(), QMessageBox::NoIcon);
        box.reject();
    });
    EXPECT_EQ(answer, BoxAnswer::ok);
}

TEST_F(MessageBoxesTest, AskWithYesAsDefault)
{
    EXPECT_EQ(show({.text = "?", .buttons = BoxButtons::yesNo},
                   [](QMessageBox& box) { QTest::keyClick(&box, Qt::Key_Return); }),
              BoxAnswer::yes);
}

TEST_F(MessageBoxesTest, AskWithNoAsDefault)
{
    const base::MessageBox box{.text = "?", .icon = BoxIcon::warning, .buttons = BoxButtons::yesNoDefaultNo};
    EXPECT_EQ(show(box, [](QMessageBox& shownBox) { QTest::keyClick(&shownBox, Qt::Key_Return); }),
              BoxAnswer::no);
    EXPECT_EQ(show(box, [](QMessageBox& shownBox) { shownBox.button(QMessageBox::Yes)->click(); }),
              BoxAnswer::yes);
}

TEST_F(MessageBoxesTest, TakeClosingAsNo)
{
    EXPECT_EQ(show({.text = "?", .buttons = BoxButtons::yesNo}, [](QMessageBox& box) { box.close(); }),
              BoxAnswer::no);
    EXPECT_EQ(show({.text = "?", .buttons = BoxButtons::yesNo},
                   [](QMessageBox& box) { QTest::keyClick(&box, Qt::Key_Escape); }),
              BoxAnswer::no);
}
