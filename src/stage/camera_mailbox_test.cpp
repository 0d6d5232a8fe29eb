#include "stage/camera_mailbox.h"

#include <gtest/gtest.h>

#include <array>
#include <atomic>
#include <chrono>
#include <thread>

using namespace std::chrono_literals;
using quillora::stage::CameraFrame;
using quillora::stage::CameraMailbox;
using quillora::stage::CameraSetting;
using quillora::stage::FrameSize;
using quillora::stage::NewestFrame;
using Changes = std::vector<std::pair<std::uint32_t, int>>;

namespace {

constexpr std::uint32_t kGain = 1;
constexpr std::uint32_t kGainMode = 2;
constexpr FrameSize kRoom{640, 480};

std::vector<CameraSetting> settingsOf(int gain, int gainMode)
{
    return {{.id = kGain, .value = gain}, {.id = kGainMode, .value = gainMode}};
}

class CameraMailboxTest : public testing::Test {
  protected:
    CameraMailboxTest() { frames.setRoom(kRoom); }

    void put(std::uint32_t colour)
    {
        CameraFrame filled{1, 1, {colour}};
        mailbox.put(filled);
    }
    bool hasPicture() { return frames.take(taken) && !taken.empty(); }

    /// What the orders ask for that are waiting.
    Changes changes() { return mailbox.takeOrders().value().changes; }

    NewestFrame frames;
    CameraFrame taken;
    std::atomic<int> wakeUps = 0;
    CameraMailbox mailbox{frames, [this] {
                              ++wakeUps;
                              wakeUps.notify_all();
                          }};
};

} // namespace

TEST_F(CameraMailboxTest, IsOpeningUntilTheDeviceOpensOrFails)
{
    EXPECT_TRUE(mailbox.opening());
    EXPECT_FALSE(mailbox.open());
    mailbox.reportOpen();
    EXPECT_FALSE(mailbox.opening());
    EXPECT_TRUE(mailbox.open());
    mailbox.reportClosed();
    EXPECT_FALSE(mailbox.opening());
    EXPECT_FALSE(mailbox.open());
}

TEST_F(CameraMailboxTest, GivesEachOrderOnce)
{
    mailbox.refreshSettings();
    mailbox.changeSetting(kGain, 5);
    EXPECT_EQ(mailbox.takeOrders(), (CameraMailbox::Orders{.readSettings = true, .changes = {{kGain, 5}}}));
    EXPECT_EQ(mailbox.takeOrders(), CameraMailbox::Orders{});
}

TEST_F(CameraMailboxTest, WakesTheCameraUpForEachOrder)
{
    mailbox.refreshSettings();
    EXPECT_EQ(wakeUps, 1);
    mailbox.changeSetting(kGain, 5);
    EXPECT_EQ(wakeUps, 2);
    mailbox.abandon();
    EXPECT_EQ(wakeUps, 3);
}

TEST_F(CameraMailboxTest, AnOrderReplacesTheOneForTheSameSettingAndComesLast)
{
    mailbox.changeSetting(kGain, 5);
    mailbox.changeSetting(kGainMode, 0);
    mailbox.changeSetting(kGain, 6);
    EXPECT_EQ(changes(), (Changes{{kGainMode, 0}, {kGain, 6}}));
}

TEST_F(CameraMailboxTest, WhatIsOrderedCountsAsDoneUntilTheDeviceSaysOtherwise)
{
    mailbox.reportSettings(settingsOf(1, 1));
    mailbox.changeSetting(kGain, 5);
    EXPECT_EQ(mailbox.settings(), settingsOf(5, 1));
    changes();
    EXPECT_EQ(mailbox.settings(), settingsOf(5, 1));
    mailbox.reportSettings(settingsOf(2, 1));
    EXPECT_EQ(mailbox.settings(), settingsOf(2, 1));
}

TEST_F(CameraMailboxTest, SettingsThatWereReadBeforeAnOrderDoNotHideIt)
{
    mailbox.changeSetting(kGain, 5);
    EXPECT_TRUE(mailbox.settings().empty());
    mailbox.reportSettings(settingsOf(1, 1));
    EXPECT_EQ(mailbox.settings(), settingsOf(5, 1));
}

TEST_F(CameraMailboxTest, PassesOnOrdersForSettingsThatItDoesNotKnow)
{
    mailbox.reportSettings(settingsOf(1, 1));
    mailbox.changeSetting(99, 5);
    EXPECT_EQ(mailbox.settings(), settingsOf(1, 1));
    EXPECT_EQ(changes(), (Changes{{99, 5}}));
}

TEST_F(CameraMailboxTest, PicturesPassWhileTheyAreWanted)
{
    EXPECT_TRUE(mailbox.room().empty());
    put(7);
    EXPECT_FALSE(hasPicture());
    mailbox.setPreview(true);
    EXPECT_EQ(mailbox.room(), kRoom);
    put(8);
    ASSERT_TRUE(hasPicture());
    EXPECT_EQ(taken.pixels[0], 8U);
    mailbox.setPreview(false);
    EXPECT_TRUE(mailbox.room().empty());
    put(9);
    EXPECT_FALSE(hasPicture());
}

TEST_F(CameraMailboxTest, ADeviceThatFailsLeavesNeitherPictureNorSettings)
{
    mailbox.setPreview(true);
    mailbox.reportSettings(settingsOf(1, 1));
    mailbox.reportOpen();
    put(7);
    mailbox.reportClosed();
    ASSERT_TRUE(frames.take(taken));
    EXPECT_TRUE(taken.empty());
    EXPECT_TRUE(mailbox.settings().empty());
}

TEST_F(CameraMailboxTest, AnAbandonedCameraGetsNoOrderButToClose)
{
    mailbox.changeSetting(kGain, 5);
    mailbox.abandon();
    EXPECT_EQ(mailbox.takeOrders(), std::nullopt);
    mailbox.changeSetting(kGain, 6);
    EXPECT_EQ(mailbox.takeOrders(), std::nullopt);
}

TEST_F(CameraMailboxTest, AnAbandonedCameraThatComesBackIsNotHeard)
{
    mailbox.setPreview(true);
    mailbox.reportSettings(settingsOf(1, 1));
    mailbox.abandon();
    EXPECT_TRUE(mailbox.settings().empty());
    mailbox.reportSettings(settingsOf(1, 1));
    mailbox.reportOpen();
    EXPECT_TRUE(mailbox.settings().empty());
    EXPECT_FALSE(mailbox.open());
    EXPECT_TRUE(mailbox.room().empty());
    put(7);
    EXPECT_FALSE(frames.take(taken));
}

TEST_F(CameraMailboxTest, AnAbandonedCameraLeavesTheNextOnesPictureAlone)
{
    mailbox.abandon();
    CameraFrame next{1, 1, {7}};
    frames.put(next);
    mailbox.reportClosed();
    EXPECT_TRUE(hasPicture());
}

TEST_F(CameraMailboxTest, WaitsUntilTheDeviceIsOpen)
{
    std::thread camera([&] { mailbox.reportOpen(); });
    EXPECT_TRUE(mailbox.waitUntilOpen({.longest = 20s}));
    camera.join();
}

TEST_F(CameraMailboxTest, WaitsNoLongerForADeviceThatFails)
{
    std::thread camera([&] { mailbox.reportClosed(); });
    EXPECT_FALSE(mailbox.waitUntilOpen({.longest = 20s}));
    EXPECT_FALSE(mailbox.opening());
    camera.join();
}

TEST_F(CameraMailboxTest, ADeviceThatTakesLongerThanThePatienceMayStillOpen)
{
    EXPECT_FALSE(mailbox.waitUntilOpen({.longest = 0ms}));
    EXPECT_TRUE(mailbox.opening());
    mailbox.reportOpen();
    EXPECT_TRUE(mailbox.open());
}

TEST_F(CameraMailboxTest, LetsEventsThroughWhileItWaits)
{
    EXPECT_TRUE(mailbox.waitUntilOpen({.longest = 20s, .letEventsThrough = [&] { mailbox.reportOpen(); }}));
}

TEST_F(CameraMailboxTest, AnEventMayAbandonTheDeviceThatIsWaitedFor)
{
    EXPECT_FALSE(mailbox.waitUntilOpen({.longest = 20s, .letEventsThrough = [&] { mailbox.abandon(); }}));
    EXPECT_FALSE(mailbox.opening());
}

TEST_F(CameraMailboxTest, AnAbandonedCameraIsClosedOnlyWhenItSaysSo)
{
    mailbox.reportOpen();
    mailbox.abandon();
    EXPECT_FALSE(mailbox.waitUntilClosed({.longest = 0ms}));
    std::thread camera([&] { mailbox.reportClosed(); });
    EXPECT_TRUE(mailbox.waitUntilClosed({.longest = 20s}));
    camera.join();
}

TEST_F(CameraMailboxTest, TwoThreadsMissNoOrderAndNoEnd)
{
    constexpr int kLast = 10'000;
    std::atomic<int> obeyed = 0;
    std::thread camera([&] {
        std::array<int, 2> device{};
        mailbox.reportSettings(settingsOf(0, 0));
        mailbox.reportOpen();
        for (int seen = 0;;) {
            wakeUps.wait(seen);
            seen = wakeUps;
            const auto orders = mailbox.takeOrders();
            if (!orders)
                break;
            for (const auto& [id, value] : orders->changes) {
                device.at(id - kGain) = value;
                obeyed = value;
                obeyed.notify_all();
            }
            mailbox.reportSettings(settingsOf(device[0], device[1]));
            if (!mailbox.room().empty())
                put(7);
        }
        put(8);
        mailbox.reportClosed();
    });
    mailbox.setPreview(true);
    EXPECT_TRUE(mailbox.waitUntilOpen({.longest = 20s}));
    for (int value = 1; value <= kLast; ++value) {
        const bool mode = value % 2 == 1;
        mailbox.changeSetting(mode ? kGainMode : kGain, value);
        EXPECT_EQ(mailbox.settings().at(mode).value, value);
    }
    for (int seen = obeyed; seen != kLast; seen = obeyed)
        obeyed.wait(seen);
    mailbox.abandon();
    frames.clear();
    frames.take(taken);
    EXPECT_TRUE(mailbox.waitUntilClosed({.longest = 20s}));
    EXPECT_FALSE(frames.take(taken)) << "a picture came after the end";
    camera.join();
}
