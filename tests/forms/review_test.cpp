#include "forms/preview_frm.h"
#include "forms/review_player.h"
#include "tests/forms/form_fixture.h"
#include "tests/forms/review_videos.h"
#include "tests/support/private_sound_server.h"

#include <QAbstractButton>
#include <QLabel>
#include <QSignalSpy>
#include <QSlider>
#include <QTest>

#include <algorithm>
#include <csignal>
#include <cstring>
#include <set>
#include <string>
#include <vector>

using namespace quillora;
using forms::preview_frm;
using forms::ReviewPlayer;
using tests::waitUntil;

namespace {

class ReviewForm : public tests::FormTest {
  protected:
    ReviewForm() { tests::makeVideo(video); }

    void showDialog()
    {
        dialog.show();
        ASSERT_TRUE(waitUntil([&] { return dialog.isActiveWindow(); }));
    }
    ReviewPlayer& player() { return dialog.WindowsMediaPlayer1(); }
    template <typename T>
    T* control(const char* name)
    {
        return dialog.findChild<T*>(QString(name));
    }
    void playVideo()
    {
        player().setURL(video.string());
        player().play();
    }
    /// With the mouse; @p clicks are words for xdotool.
    void clickTheScreen(const std::vector<std::string>& clicks)
    {
        auto* screen = control<QWidget>("video_screen");
        const QPoint middle = screen->mapToGlobal(screen->rect().center());
        std::vector<std::string> words{"xdotool", "mousemove", std::to_string(middle.x()),
                                       std::to_string(middle.y())};
        words.insert(words.end(), clicks.begin(), clicks.end());
        EXPECT_EQ(tests::runToEnd(words), 0);
    }
    bool playing() { return control<QAbstractButton>("player_play")->accessibleName() == "Pause"; }
    int position() { return control<QSlider>("player_seek")->value(); }

    QColor shown()
    {
        auto* screen = control<QWidget>("video_screen");
        const QPoint middle = screen->mapToGlobal(screen->rect().center());
        return probe.grab({middle.x(), middle.y(), 1, 1}).pixelColor(0, 0);
    }
    bool showsRed() { return shown().red() > 180 && shown().blue() < 80; }
    bool showsBlue() { return shown().blue() > 180 && shown().red() < 80; }
    bool idle() { return !control<QWidget>("player_controls")->isEnabled(); }

    std::filesystem::path video = folder.path() / "video.wmv";
    preview_frm dialog{QUILLORA_REVIEW_PLAYER, &form};
};

TEST_F(ReviewForm, PlaysAVideoWithItsTimes)
{
    showDialog();
    playVideo();
    EXPECT_TRUE(waitUntil([&] { return showsRed(); }));
    EXPECT_TRUE(waitUntil([&] { return playing() && position() > 500; }));
    EXPECT_NEAR(control<QSlider>("player_seek")->maximum(), 6000, 200);
    EXPECT_TRUE(control<QLabel>("player_time")->text().endsWith(" / 0:06"));
    EXPECT_TRUE(waitUntil([&] { return showsBlue(); }));
    if (const char* pictures = std::getenv("QUILLORA_PICTURES"))
        probe.grab({0, 0, QUILLORA_TEST_SCREEN_WIDTH, QUILLORA_TEST_SCREEN_HEIGHT})
            .save(QString(pictures) + "/review.png");
}

TEST_F(ReviewForm, PausesAndGoesOn)
{
    showDialog();
    playVideo();
    EXPECT_TRUE(waitUntil([&] { return playing() && position() > 300; }));
    control<QAbstractButton>("player_play")->click();
    EXPECT_TRUE(waitUntil([&] { return !playing(); }));
    const int paused = position();
    tests::settle(500);
    EXPECT_EQ(position(), paused);
    control<QAbstractButton>("player_play")->click();
    EXPECT_TRUE(waitUntil([&] { return playing() && position() > paused; }));
}

TEST_F(ReviewForm, SeeksWhileItPlaysAndWhileItIsPaused)
{
    showDialog();
    playVideo();
    EXPECT_TRUE(waitUntil([&] { return showsRed(); }));
    auto* seek = control<QSlider>("player_seek");
    seek->setSliderPosition(4000);
    seek->triggerAction(QSlider::SliderMove);
    EXPECT_TRUE(waitUntil([&] { return showsBlue() && position() >= 4000; }));
    control<QAbstractButton>("player_play")->click();
    EXPECT_TRUE(waitUntil([&] { return !playing(); }));
    seek->triggerAction(QSlider::SliderToMinimum);
    EXPECT_TRUE(waitUntil([&] { return showsRed(); }));
}

TEST_F(ReviewForm, StopsAtTheEndAndPlaysAnew)
{
    showDialog();
    playVideo();
    EXPECT_TRUE(waitUntil([&] { return showsRed(); }));
    control<QSlider>("player_seek")->triggerAction(QSlider::SliderToMaximum);
    EXPECT_TRUE(waitUntil([&] { return !playing(); }));
    control<QAbstractButton>("player_play")->click();
    EXPECT_TRUE(waitUntil([&] { return playing() && showsRed(); }));
}

TEST_F(ReviewForm, IsPlayedByTheKeyboard)
{
    showDialog();
    playVideo();
    EXPECT_TRUE(waitUntil([&] { return playing() && position() > 300; }));
    control<QWidget>("video_screen")->setFocus();
    type("space");
    EXPECT_TRUE(waitUntil([&] { return !playing(); }));
    type("Right");
    EXPECT_TRUE(waitUntil([&] { return position() > 4500; }));
    type("Left");
    EXPECT_TRUE(waitUntil([&] { return position() < 2000; }));
    type("Down");
    EXPECT_TRUE(waitUntil([&] { return control<QSlider>("player_volume")->value() == 95; }));
    type("Up");
    EXPECT_TRUE(waitUntil([&] { return control<QSlider>("player_volume")->value() == 100; }));
}

TEST_F(ReviewForm, FillsTheScreenAndComesBackByEscape)
{
    showDialog();
    playVideo();
    QSignalSpy closed(&dialog, &preview_frm::Command1_Click);
    EXPECT_TRUE(waitUntil([&] { return showsRed(); }));
    control<QWidget>("video_screen")->setFocus();
    type("F11");
    EXPECT_TRUE(
        waitUntil([&] { return control<QWidget>("video_screen")->width() == QUILLORA_TEST_SCREEN_WIDTH; }));
    EXPECT_TRUE(waitUntil([&] {
        const QColor edge = probe.grab({4, 500, 1, 1}).pixelColor(0, 0);
        return (edge.red() > 180 && edge.blue() < 80) || (edge.blue() > 180 && edge.red() < 80);
    }));
    EXPECT_FALSE(control<QWidget>("Command3")->isVisible());
    type("Escape");
    EXPECT_TRUE(
        waitUntil([&] { return !dialog.isFullScreen() && control<QWidget>("Command3")->isVisible(); }));
    EXPECT_EQ(closed.count(), 0);
    type("Escape");
    EXPECT_TRUE(waitUntil([&] { return closed.count() == 1; }));
}

TEST_F(ReviewForm, CanBeWalkedByTab)
{
    showDialog();
    playVideo();
    EXPECT_TRUE(waitUntil([&] { return playing(); }));
    std::set<std::string> reached;
    for (int i = 0; i < 12; ++i) {
        if (dialog.focusWidget() != nullptr) {
            reached.insert(dialog.focusWidget()->objectName().toStdString());
            EXPECT_FALSE(dialog.focusWidget()->accessibleName().isEmpty());
        }
        type("Tab");
        tests::settle(60);
    }
    EXPECT_EQ(reached, (std::set<std::string>{"video_screen", "player_play", "player_seek", "player_volume",
                                              "player_fullscreen", "Command3", "Command1"}));
}

TEST_F(ReviewForm, HasAPlayerThatIsIdleAndCostsNothingBeforeItsFirstVideo)
{
    showDialog();
    EXPECT_TRUE(idle());
    EXPECT_TRUE(tests::reviewPlayers().empty());
    EXPECT_EQ(control<QLabel>("player_time")->text(), "0:00 / 0:00");
    EXPECT_EQ(shown(), QColor(Qt::black));
    EXPECT_FALSE(control<QWidget>("Command2")->isVisible());
    EXPECT_EQ(control<QLabel>("savedVid_lb")->text(), "");
}

TEST_F(ReviewForm, ShowsThePlayerNothingThatIsNoVideo)
{
    showDialog();
    tests::writeFile(folder.path() / "points_elsewhere.wmv",
                     "ffconcat version 1.0\nfile '" + video.string() + "'\n");
    std::filesystem::create_symlink(video, folder.path() / "link.wmv");
    for (const auto& path :
         {(folder.path() / "points_elsewhere.wmv").string(), (folder.path() / "link.wmv").string(),
          folder.path().string() + "/", (folder.path() / "missing.wmv").string()}) {
        player().setURL(path);
        player().play();
        tests::settle(100);
        EXPECT_TRUE(idle()) << path;
        EXPECT_TRUE(tests::reviewPlayers().empty()) << path;
    }
}

TEST_F(ReviewForm, UnloadsTheVideoBeforeWhatIsNone)
{
    showDialog();
    playVideo();
    EXPECT_TRUE(waitUntil([&] { return showsRed(); }));
    player().setURL(folder.path().string() + "/");
    EXPECT_TRUE(idle());
    EXPECT_TRUE(waitUntil([&] { return shown() == QColor(Qt::black); }));
    playVideo();
    EXPECT_TRUE(waitUntil([&] { return showsRed(); }));
}

TEST_F(ReviewForm, OutlivesItsPlayer)
{
    showDialog();
    playVideo();
    EXPECT_TRUE(waitUntil([&] { return showsRed(); }));
    ASSERT_EQ(tests::reviewPlayers().size(), 1U);
    ::kill(tests::reviewPlayers().front(), SIGSEGV);
    EXPECT_TRUE(waitUntil([&] { return idle(); }));
    playVideo();
    EXPECT_TRUE(waitUntil([&] { return showsRed(); }));
}

TEST_F(ReviewForm, ReplacesAPlayerThatHangs)
{
    showDialog();
    playVideo();
    EXPECT_TRUE(waitUntil([&] { return showsBlue(); }));
    ASSERT_EQ(tests::reviewPlayers().size(), 1U);
    ::kill(tests::reviewPlayers().front(), SIGSTOP);
    playVideo();
    EXPECT_TRUE(waitUntil([&] { return showsRed() && playing(); }));
    EXPECT_EQ(tests::reviewPlayers().size(), 1U);
}

TEST_F(ReviewForm, AClickPausesAndGoesOnAndTheOtherButtonsDoNothing)
{
    showDialog();
    playVideo();
    EXPECT_TRUE(waitUntil([&] { return playing() && showsRed(); }));
    clickTheScreen({"click", "2", "click", "3"});
    tests::settle(300);
    EXPECT_TRUE(playing());
    clickTheScreen({"click", "1"});
    EXPECT_TRUE(waitUntil([&] { return !playing(); }));
    // Longer than a double click takes.
    tests::settle(QApplication::doubleClickInterval() + 100);
    clickTheScreen({"click", "1"});
    EXPECT_TRUE(waitUntil([&] { return playing(); }));
}

TEST_F(ReviewForm, ADoubleClickFillsTheScreenAndLeavesTheVideoPlayingOrPaused)
{
    showDialog();
    playVideo();
    EXPECT_TRUE(waitUntil([&] { return playing() && showsRed(); }));
    clickTheScreen({"click", "--repeat", "2", "--delay", "60", "1"});
    EXPECT_TRUE(waitUntil([&] { return dialog.isFullScreen(); }));
    tests::settle(300);
    const int before = position();
    EXPECT_TRUE(waitUntil([&] { return playing() && position() > before; }));
    control<QAbstractButton>("player_play")->click();
    EXPECT_TRUE(waitUntil([&] { return !playing(); }));
    clickTheScreen({"click", "--repeat", "2", "--delay", "60", "1"});
    EXPECT_TRUE(waitUntil([&] { return !dialog.isFullScreen(); }));
    tests::settle(300);
    EXPECT_TRUE(waitUntil([&] { return !playing(); }));
}

TEST_F(ReviewForm, OutlivesVideosThatAreCutOrDamaged)
{
    showDialog();
    const auto whole = tests::readFile(video);
    for (const std::size_t length : {std::size_t{16}, std::size_t{100}, std::size_t{700}, whole.size() / 2}) {
        tests::writeFile(video, whole.substr(0, length));
        playVideo();
        tests::settle(400);
    }
    auto damaged = whole;
    for (std::size_t at = 16; at < damaged.size(); at += 97)
        damaged[at] = char(~damaged[at]);
    tests::writeFile(video, damaged);
    playVideo();
    tests::settle(400);
    tests::writeFile(video, whole);
    playVideo();
    EXPECT_TRUE(waitUntil([&] { return showsRed(); }));
}

TEST_F(ReviewForm, WithoutItsProgram_IsIdle)
{
    preview_frm other(folder.path() / "no-such-program", &form);
    other.show();
    other.WindowsMediaPlayer1().setURL(video.string());
    other.WindowsMediaPlayer1().play();
    EXPECT_TRUE(waitUntil([&] { return !other.findChild<QWidget*>("player_controls")->isEnabled(); }));
}

/// A sound server that the player finds, and what comes out of it.
class HeardReviewForm : public ReviewForm {
  protected:
    HeardReviewForm()
    {
        for (const auto& [name, value] : sound.environment())
            ::setenv(name.c_str(), value.c_str(), 1);
    }
    ~HeardReviewForm() override
    {
        for (const auto& [name, value] : sound.environment())
            ::unsetenv(name.c_str());
    }

    /// The largest sample of a while in which the video went on playing; -1 where it didn't.
    int loudness()
    {
        if (!playing())
            player().play();
        const int before = position();
        const auto file = folder.path() / "heard.raw";
        tests::runToEnd({"sh", "-c",
                         "timeout 0.4 parec --device=null.monitor --format=s16le --channels=1 > \"$0\"",
                         file.string()},
                        sound.environment());
        const auto bytes = tests::readFile(file);
        std::vector<std::int16_t> samples(bytes.size() / sizeof(std::int16_t));
        std::memcpy(samples.data(), bytes.data(), samples.size() * sizeof(std::int16_t));
        tests::settle(50);
        if (samples.empty() || !playing() || before < 500 || position() <= before)
            return -1;
        const auto [lowest, highest] = std::ranges::minmax(samples);
        return std::max<int>(highest, -lowest);
    }

    const tests::PrivateSoundServer sound{{tests::PrivateSoundServer::kNullSink}};
};

TEST_F(HeardReviewForm, LetsTheVideoBeHeardAsLoudAsItsSliderSays)
{
    constexpr int kTone = 2000;
    showDialog();
    playVideo();
    EXPECT_TRUE(waitUntil([&] { return loudness() > kTone; }));
    control<QSlider>("player_volume")->setValue(0);
    EXPECT_TRUE(waitUntil([&] { return loudness() == 0; }));
    control<QSlider>("player_volume")->setValue(100);
    EXPECT_TRUE(waitUntil([&] { return loudness() > kTone; }));
}

} // namespace
