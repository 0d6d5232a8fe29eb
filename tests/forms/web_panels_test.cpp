#include "tests/forms/form_fixture.h"

#include "forms/video_panel_widget.h"
#include "forms/web_panel_widget.h"

#include <QAbstractButton>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>

using namespace quillora;

namespace {

using Calls = std::vector<std::string>;

class WebPanelsTest : public testing::Test {
  protected:
    WebPanelsTest()
    {
        window.resize(400, 300);
        web.setGeometry(QRect({0, 0}, web.sizeHint()));
        video.setGeometry(QRect({0, 100}, video.sizeHint()));
        elsewhere.move(0, 250);
        QObject::connect(&web, &forms::WebPanelWidget::web_TB_ButtonClick,
                         [this](const std::string& key) { calls.push_back(key); });
        QObject::connect(&web, &forms::WebPanelWidget::http_txt_KeyPress,
                         [this](int character) { calls.push_back(std::to_string(character)); });
        QObject::connect(&video, &forms::VideoPanelWidget::asxToolbar1_ButtonClick,
                         [this](const std::string& key) { calls.push_back(key); });
        QObject::connect(&video, &forms::VideoPanelWidget::Command3_Click,
                         [this] { calls.push_back("Command3"); });
        window.show();
        EXPECT_TRUE(tests::becomesActive(window));
    }

    template <typename T = QWidget>
    T* find(const char* name)
    {
        return tests::control<T>(window, name);
    }

    QWidget window;
    forms::WebPanelWidget web{&window};
    forms::VideoPanelWidget video{&window};
    QPushButton elsewhere{"elsewhere", &window};
    Calls calls;
};

} // namespace

TEST_F(WebPanelsTest, ButtonsOfTheWebToolbarSendTheirKeysInTheirOrder)
{
    struct Row {
        const char* key;
        const char* toolTip;
    };
    int right = -1;
    for (const Row row : {Row{"go", "Go"}, Row{"back", "Back"}, Row{"stop", "Stop"},
                          Row{"forward", "Forward"}, Row{"zoomin", "Zoom in"}, Row{"zoomout", "Zoom out"}}) {
        calls.clear();
        auto* button = find<QAbstractButton>((std::string("web_TB_") + row.key).c_str());
        ASSERT_NE(button, nullptr);
        QTest::mouseClick(button, Qt::LeftButton);
        EXPECT_EQ(calls, Calls{row.key});
        EXPECT_EQ(button->toolTip(), row.toolTip);
        EXPECT_FALSE(button->icon().isNull()) << row.key;
        EXPECT_GT(button->x(), right) << row.key;
        right = button->x();
    }
}

TEST_F(WebPanelsTest, EnterInTheAddressBoxIsSentAndOtherKeysAreItsOwn)
{
    auto* box = find<QLineEdit>("http_txt");
    box->setFocus();
    box->selectAll();
    QTest::keyClicks(box, "a b");
    EXPECT_EQ(calls, Calls{});
    EXPECT_EQ(web.http_txt(), "a b");
    QTest::keyClick(box, Qt::Key_Return);
    QTest::keyClick(box, Qt::Key_Enter);
    EXPECT_EQ(calls, (Calls{"13", "13"}));
}

TEST_F(WebPanelsTest, TheAddressBoxBeginsWithAPublicAddressAndTakesALongOne)
{
    EXPECT_TRUE(web.http_txt().starts_with("https://"));
    find<QLineEdit>("http_txt")->setText(QString(100'000, 'x'));
    EXPECT_EQ(web.http_txt().size(), 100'000U);
}

TEST_F(WebPanelsTest, TheReadOutBeginsAt100AndShowsWhatItIsTold)
{
    EXPECT_EQ(web.Label24(), "100%");
    web.setLabel24("110%");
    EXPECT_EQ(web.Label24(), "110%");
    EXPECT_EQ(find<QLabel>("Label24")->text(), "110%");
    EXPECT_FALSE(find("Label24")->visibleRegion().isEmpty());
}

TEST_F(WebPanelsTest, ThePanelsHaveTheirPartsInTheirPlaces)
{
    EXPECT_EQ(web.size(), QSize(249, 65));
    EXPECT_EQ(find("http_txt")->geometry(), QRect(0, 0, 247, 27));
    EXPECT_EQ(find("web_TB")->geometry(), QRect(0, 32, 249, 33));
    EXPECT_EQ(find("online_opt")->geometry(), QRect(0, 136, 65, 17));
    EXPECT_EQ(find("offline_opt")->geometry(), QRect(64, 136, 65, 17));
    EXPECT_EQ(video.size(), QSize(249, 73));
    EXPECT_EQ(find("yturl_txt")->geometry(), QRect(0, 0, 249, 29));
    EXPECT_EQ(find("asxToolbar1")->geometry(), QRect(0, 32, 40, 40));
    EXPECT_EQ(find("Command3")->geometry(), QRect(104, 96, 36, 25));
}

TEST_F(WebPanelsTest, OnlineAndOfflineLieBelowWhatThePanelShows)
{
    EXPECT_TRUE(find<QAbstractButton>("online_opt")->isChecked());
    EXPECT_FALSE(find<QAbstractButton>("offline_opt")->isChecked());
    for (const char* option : {"online_opt", "offline_opt"}) {
        EXPECT_TRUE(find(option)->visibleRegion().isEmpty()) << option;
        EXPECT_EQ(find(option)->focusPolicy(), Qt::NoFocus) << option;
    }
}

TEST_F(WebPanelsTest, BothButtonsOfTheVideoPanelAreSent)
{
    QTest::mouseClick(find("asxToolbar1_youtube"), Qt::LeftButton);
    find<QAbstractButton>("Command3")->click();
    EXPECT_EQ(calls, (Calls{"youtube", "Command3"}));
    EXPECT_TRUE(find("Command3")->visibleRegion().isEmpty());
}

TEST_F(WebPanelsTest, TheVideoBoxTellsOfItsFocus)
{
    EXPECT_TRUE(video.yturl_txt().starts_with("https://www.youtube.com/watch?v="));
    Calls focus;
    QObject::connect(&video, &forms::VideoPanelWidget::yturl_txt_GotFocus, [&] { focus.push_back("got"); });
    QObject::connect(&video, &forms::VideoPanelWidget::yturl_txt_LostFocus, [&] { focus.push_back("lost"); });
    elsewhere.setFocus();
    focus.clear();
    find("yturl_txt")->setFocus();
    elsewhere.setFocus();
    EXPECT_EQ(focus, (Calls{"got", "lost"}));
}

TEST_F(WebPanelsTest, TheVideoBoxShowsWhatItIsTold)
{
    video.setYturl_txt("Video URL");
    EXPECT_EQ(find<QLineEdit>("yturl_txt")->text(), "Video URL");
    EXPECT_EQ(video.yturl_txt(), "Video URL");
}
