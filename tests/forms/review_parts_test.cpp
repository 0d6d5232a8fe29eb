#include "app/review_parts.h"

#include "session/platform/zip/libzip_reader.h"
#include "session/platform/zip/libzip_writer.h"
#include "tests/forms/form_fixture.h"
#include "tests/forms/review_videos.h"
#include "tests/support/call_log.h"
#include "tests/support/fake_common_dialog.h"

#include <QAbstractButton>
#include <QApplication>
#include <QTimer>

#include <functional>

using namespace quillora;
using forms::preview_frm;
using tests::waitUntil;

namespace {

/// The parts as the program joins them, on a disk of their own.
class ReviewPartsTest : public tests::FormTest {
  protected:
    ReviewPartsTest()
    {
        workspace.makeFolders();
        tests::makeVideo(folder.path() / "aB3dE6gH.wmv");
        tests::writeFile(folder.path() / "version.txt", "Version");
        session::LibzipWriter writer;
        for (const auto* name : {"version.txt", "aB3dE6gH.wmv"})
            writer.AddFileToZip(folder.path() / name);
        writer.setDestinationZipFile(container);
        writer.Zip();
    }

    /// Opens the review, and does @p act with its form once that is there.
    void review(const std::function<void(preview_frm&)>& act)
    {
        QTimer poll;
        QObject::connect(&poll, &QTimer::timeout, [&] {
            auto* shownForm = qobject_cast<preview_frm*>(QApplication::activeModalWidget());
            if (shownForm == nullptr || !shownForm->isVisible())
                return;
            poll.stop();
            act(*shownForm);
            shownForm->findChild<QAbstractButton*>("Command1")->click();
        });
        poll.start(20);
        parts.preview();
    }
    static bool plays(preview_frm& shownForm)
    {
        return waitUntil([&] {
            return shownForm.findChild<QAbstractButton*>("player_play")->accessibleName() == "Pause";
        });
    }

    std::filesystem::path container = folder.path() / "lecture.asf";
    session::SessionFields fields{};
    session::Workspace workspace{fields, {.appData = folder.path() / "app", .localAppData = folder.path()}};
    tests::CallLog log{};
    tests::FakeCommonDialog CommonDialog1{log};
    session::LibzipReaderFactory zip{};
    app::ReviewParts parts{{.fields = fields,
                            .workspace = workspace,
                            .zip = zip,
                            .CommonDialog1 = CommonDialog1,
                            .window = form,
                            .playerProgram = QUILLORA_REVIEW_PLAYER}};
};

TEST_F(ReviewPartsTest, PlayWhatWasSavedLast)
{
    fields.asf_name_lb = container.string();
    CommonDialog1.FileName = container.string();
    review([&](preview_frm& shownForm) {
        EXPECT_TRUE(shownForm.isModal());
        EXPECT_EQ(shownForm.parentWidget(), &form);
        EXPECT_TRUE(plays(shownForm));
    });
    EXPECT_TRUE(waitUntil([] { return tests::reviewPlayers().empty(); }));
    EXPECT_TRUE(std::filesystem::exists(workspace.preview() / "aB3dE6gH.wmv"));
}

TEST_F(ReviewPartsTest, OpenWithAnIdlePlayerAndPlayWhatIsChosen)
{
    CommonDialog1.willBeCancelled();
    CommonDialog1.willChoose(container);
    review([&](preview_frm& shownForm) {
        shownForm.findChild<QAbstractButton*>("Command3")->click();
        EXPECT_FALSE(shownForm.findChild<QWidget*>("player_controls")->isEnabled());
        shownForm.findChild<QAbstractButton*>("Command3")->click();
        EXPECT_TRUE(plays(shownForm));
    });
}

TEST_F(ReviewPartsTest, BeginEachReviewWithANewPlayer)
{
    fields.asf_name_lb = container.string();
    CommonDialog1.FileName = container.string();
    review([&](preview_frm& shownForm) { EXPECT_TRUE(plays(shownForm)); });
    fields.asf_name_lb = "no_video";
    review([&](preview_frm& shownForm) {
        EXPECT_FALSE(shownForm.findChild<QWidget*>("player_controls")->isEnabled());
    });
}

} // namespace
