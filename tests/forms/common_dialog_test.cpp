#include "forms/qt_common_dialog.h"

#include "tests/forms/form_fixture.h"
#include "tests/support/file_contents.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QComboBox>
#include <QFileDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QTest>
#include <QTimer>

using namespace quillora;

namespace {

constexpr const char* kDeckFilter =
    "PowerPoint 2003 (*.ppt)|*.ppt|PowerPoint 2007/2010 (*.pptx)|*.pptx|PowerPointShow (*.pps)|*.pps";
constexpr const char* kSaveFilter = "Advanced Systems Format (*.asf)|*.asf|Windows Media Video (*.wmv)|*.wmv";
constexpr const char* kDeckMasks = "*.ppt; *.pptx; *.pps";

class CommonDialogTest : public tests::FormTest {
  protected:
    using Act = std::function<void(QFileDialog&)>;

    void drive(const Act& act, const std::function<void()>& run)
    {
        bool acted = false;
        QTimer poll;
        QObject::connect(&poll, &QTimer::timeout, [&] {
            auto* shownDialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
            if (shownDialog == nullptr || !shownDialog->isVisible())
                return;
            poll.stop();
            acted = true;
            act(*shownDialog);
        });
        poll.start(20);
        run();
        EXPECT_TRUE(acted);
    }
    void open(const Act& act)
    {
        drive(act, [this] { dialog.ShowOpen(); });
    }
    void save(const Act& act)
    {
        drive(act, [this] { dialog.ShowSave(); });
    }

    static QLineEdit& nameField(QFileDialog& shownDialog)
    {
        return *shownDialog.findChild<QLineEdit*>("fileNameEdit");
    }
    static Act typed(const QString& name)
    {
        return [name](QFileDialog& shownDialog) {
            QLineEdit& field = nameField(shownDialog);
            field.setFocus();
            EXPECT_TRUE(tests::waitUntil([&] { return field.hasFocus(); }));
            field.selectAll();
            field.insert(name);
            QTest::keyClick(&field, Qt::Key_Return);
        };
    }
    static void cancel(QFileDialog& shownDialog) { shownDialog.reject(); }

    /// The names that the list shows, once it has been read from the disk.
    static QStringList listed(QFileDialog& shownDialog, int expected)
    {
        const auto* view = shownDialog.findChild<QAbstractItemView*>("listView");
        const auto names = [view] {
            QStringList found;
            for (int row = 0; row < view->model()->rowCount(view->rootIndex()); ++row)
                found << view->model()->index(row, 0, view->rootIndex()).data().toString();
            found.sort();
            return found;
        };
        tests::waitUntil([&] { return names().size() >= expected; });
        return names();
    }

    std::string inFolder(const std::string& name) { return (folder.path() / name).string(); }

    forms::QtCommonDialog dialog{form};
};

} // namespace

TEST_F(CommonDialogTest, KeepsATypedNameWithoutExtensionAsItIs)
{
    dialog.Filter = kSaveFilter;
    save(typed(QString::fromStdString(inFolder("lecture7"))));
    EXPECT_EQ(dialog.FileName, inFolder("lecture7"));
    EXPECT_EQ(dialog.FileTitle, "lecture7");
    EXPECT_EQ(dialog.FilterIndex, 1);
}

TEST_F(CommonDialogTest, NeverAsksAboutOverwriting)
{
    tests::writeFile(inFolder("there.asf"), "x");
    dialog.Filter = kSaveFilter;
    save(typed(QString::fromStdString(inFolder("there.asf"))));
    EXPECT_EQ(dialog.FileName, inFolder("there.asf"));
    EXPECT_EQ(dialog.FileTitle, "there.asf");
    EXPECT_EQ(tests::readFile(inFolder("there.asf")), "x");
}

TEST_F(CommonDialogTest, LeavesItsFieldsWhenItIsCancelled)
{
    dialog.FileName = kDeckMasks;
    dialog.FileTitle = "before";
    dialog.Filter = kDeckFilter;
    dialog.FilterIndex = 2;
    open(cancel);
    EXPECT_EQ(dialog.FileName, kDeckMasks);
    EXPECT_EQ(dialog.FileTitle, "before");
    EXPECT_EQ(dialog.FilterIndex, 2);
    dialog.FileName = "";
    save(cancel);
    EXPECT_EQ(dialog.FileName, "");
    EXPECT_EQ(dialog.FileTitle, "before");
}

TEST_F(CommonDialogTest, ShowsItsTitleAndFilters)
{
    dialog.DialogTitle = "Save Video Presentation As";
    dialog.Filter = kSaveFilter;
    save([](QFileDialog& shownDialog) {
        EXPECT_EQ(shownDialog.windowTitle(), "Save Video Presentation As");
        EXPECT_EQ(shownDialog.nameFilters(),
                  (QStringList{"Advanced Systems Format (*.asf)", "Windows Media Video (*.wmv)"}));
        EXPECT_EQ(nameField(shownDialog).text(), "");
        shownDialog.reject();
    });
}

TEST_F(CommonDialogTest, GivesTheNumberOfTheChosenFilterAndTakesItUpAgain)
{
    dialog.Filter = kSaveFilter;
    save([&](QFileDialog& shownDialog) {
        auto* filters = shownDialog.findChild<QComboBox*>("fileTypeCombo");
        filters->setCurrentIndex(1);
        emit filters->textActivated(filters->currentText());
        typed(QString::fromStdString(inFolder("a.wmv")))(shownDialog);
    });
    EXPECT_EQ(dialog.FilterIndex, 2);
    save([](QFileDialog& shownDialog) {
        EXPECT_EQ(shownDialog.selectedNameFilter(), "Windows Media Video (*.wmv)");
        shownDialog.reject();
    });
}

TEST_F(CommonDialogTest, KeepsMasksOutOfTheNameFieldAndShowsTheFilesOfAllOfThem)
{
    for (const char* name : {"a.ppt", "b.PPTX", "c.Pps", "d.txt", "e.pptm"})
        tests::writeFile(inFolder(name), "x");
    dialog.FileName = inFolder("start");
    open(cancel);
    dialog.FileName = kDeckMasks;
    dialog.Filter = kDeckFilter;
    open([&](QFileDialog& shownDialog) {
        EXPECT_EQ(nameField(shownDialog).text(), "");
        shownDialog.setDirectory(tests::text(folder.path()));
        EXPECT_EQ(listed(shownDialog, 3), (QStringList{"a.ppt", "b.PPTX", "c.Pps"}));
        EXPECT_EQ(shownDialog.nameFilters().size(), 4);
        typed("b.PPTX")(shownDialog);
    });
    EXPECT_EQ(dialog.FileName, inFolder("b.PPTX"));
    EXPECT_EQ(dialog.FileTitle, "b.PPTX");
    EXPECT_EQ(dialog.FilterIndex, 1);
}

TEST_F(CommonDialogTest, OpensAFileThatIsPickedFromTheList)
{
    tests::writeFile(inFolder("slides.pptx"), "x");
    dialog.FileName = kDeckMasks;
    dialog.Filter = kDeckFilter;
    open([&](QFileDialog& shownDialog) {
        shownDialog.setDirectory(tests::text(folder.path()));
        ASSERT_EQ(listed(shownDialog, 1), QStringList{"slides.pptx"});
        auto* view = shownDialog.findChild<QAbstractItemView*>("listView");
        const QModelIndex file = view->model()->index(0, 0, view->rootIndex());
        view->setFocus();
        view->setCurrentIndex(file);
        QTest::keyClick(view, Qt::Key_Return);
    });
    EXPECT_EQ(dialog.FileName, inFolder("slides.pptx"));
}

TEST_F(CommonDialogTest, OpensAFileThatIsPickedWhileTheNameFieldHasTheFocus)
{
    tests::writeFile(inFolder("slides.pptx"), "x");
    dialog.Filter = kDeckFilter;
    dialog.FilterIndex = 2;
    open([&](QFileDialog& shownDialog) {
        shownDialog.setDirectory(tests::text(folder.path()));
        ASSERT_EQ(listed(shownDialog, 1), QStringList{"slides.pptx"});
        EXPECT_TRUE(tests::waitUntil([&] { return nameField(shownDialog).hasFocus(); }));
        auto* view = shownDialog.findChild<QAbstractItemView*>("listView");
        view->setCurrentIndex(view->model()->index(0, 0, view->rootIndex()));
        QTest::keyClick(view, Qt::Key_Return);
    });
    EXPECT_EQ(dialog.FileName, inFolder("slides.pptx"));
}

TEST_F(CommonDialogTest, TakesAnyNameAsItIsTyped)
{
    for (const char* name : {"with blanks.ppt", "quo\"te's \"both\".pptx", "hash#100%.pps", "~tilde.ppt",
                             "日本語 é.pptx", "not there"}) {
        dialog.FileName = kDeckMasks;
        dialog.Filter = kDeckFilter;
        open(typed(QString::fromStdString(inFolder(name))));
        EXPECT_EQ(dialog.FileName, inFolder(name));
        EXPECT_EQ(dialog.FileTitle, name);
    }
    const std::string longName = std::string(240, 'n') + ".ppt";
    dialog.FileName = "";
    open(typed(QString::fromStdString(inFolder(longName))));
    EXPECT_EQ(dialog.FileName, inFolder(longName));
}

TEST_F(CommonDialogTest, OpensAFolderWhoseNameIsTypedAndStays)
{
    std::filesystem::create_directory(inFolder("sub"));
    dialog.Filter = kSaveFilter;
    save([&](QFileDialog& shownDialog) {
        typed(QString::fromStdString(inFolder("sub")))(shownDialog);
        EXPECT_TRUE(shownDialog.isVisible());
        EXPECT_EQ(shownDialog.directory().dirName(), "sub");
        typed("lecture.asf")(shownDialog);
    });
    EXPECT_EQ(dialog.FileName, inFolder("sub/lecture.asf"));
}

TEST_F(CommonDialogTest, RemembersTheFolderForTheRunOfTheProgram)
{
    dialog.Filter = kSaveFilter;
    save(typed(QString::fromStdString(inFolder("one.asf"))));
    dialog.FileName = kDeckMasks;
    open([&](QFileDialog& shownDialog) {
        EXPECT_EQ(shownDialog.directory().absolutePath(), tests::text(folder.path()));
        shownDialog.reject();
    });
}

TEST_F(CommonDialogTest, ProposesAName)
{
    dialog.FileName = inFolder("proposed.asf");
    dialog.Filter = kSaveFilter;
    save([&](QFileDialog& shownDialog) {
        EXPECT_EQ(nameField(shownDialog).text(), "proposed.asf");
        QTest::keyClick(&nameField(shownDialog), Qt::Key_Return);
    });
    EXPECT_EQ(dialog.FileName, inFolder("proposed.asf"));
}
