#pragma once

#include "capture/pixel_rectangle.h"
#include "deck/image_surface.h"
#include "deck/task_pane.h"
#include "forms/platform/x11/x11_window_hints.h"
#include "forms/task_pane_widget.h"
#include "forms/vantry_frm.h"
#include "tests/forms/x11_probe.h"
#include "tests/support/child_process.h"
#include "tests/support/temporary_folder.h"

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QElapsedTimer>
#include <QImage>
#include <QPainter>
#include <QThread>
#include <QWidget>

#include <gtest/gtest.h>

#include <filesystem>
#include <functional>
#include <string>

namespace quillora::tests {

/// Lets the event loop turn until @p done or until twenty seconds are over; gives what @p done says then.
inline bool waitUntil(const std::function<bool()>& done)
{
    QDeadlineTimer deadline(20000);
    while (!done()) {
        if (deadline.hasExpired())
            return false;
        QCoreApplication::processEvents(QEventLoop::AllEvents, 20);
        QThread::msleep(2);
    }
    return true;
}

/// Lets the event loop turn for a while in which nothing should happen.
inline void settle(int milliseconds = 200)
{
    QDeadlineTimer deadline(milliseconds);
    while (!deadline.hasExpired()) {
        QCoreApplication::processEvents(QEventLoop::AllEvents, 20);
        QThread::msleep(2);
    }
}

/// Whether @p window, which is shown, comes to have the focus.
inline bool becomesActive(QWidget& window)
{
    // A window manager that has only just begun gives no focus to a window that it finds there already.
    QElapsedTimer sinceAsked;
    sinceAsked.start();
    return waitUntil([&] {
        if (sinceAsked.elapsed() > 500) {
            window.activateWindow();
            sinceAsked.start();
        }
        return window.isActiveWindow();
    });
}

/// What stands in @p window under the name @p name; where nothing does, the test has failed.
template <typename T = QWidget>
T* control(QWidget& window, const char* name)
{
    T* found = window.findChild<T*>(QString(name));
    EXPECT_NE(found, nullptr) << name;
    return found;
}

/// A picture in which every pixel differs from its neighbours, so that one that is shifted, scaled or covered
/// shows.
inline QImage busyPicture(QSize size)
{
    QImage picture(size, QImage::Format_RGB32);
    for (int y = 0; y < size.height(); ++y)
        for (int x = 0; x < size.width(); ++x)
            picture.setPixel(x, y, qRgb((x * 7 + y * 3) & 0xFF, (x * 5) & 0xFF, (y * 11 + x) & 0xFF));
    return picture;
}

inline QImage plainPicture(QSize size, QColor colour)
{
    QImage picture(size, QImage::Format_RGB32);
    picture.fill(colour);
    return picture;
}

inline QString text(const std::filesystem::path& path) { return QString::fromStdString(path.string()); }

/// The main form on the screen, with the focus.
class FormTest : public testing::Test {
  protected:
    FormTest()
    {
        form.setCaption("Quillora Recorder");
        ebDemo.AddExpBarLess();
        form.show();
        shown = becomesActive(form) && waitUntil([&] { return probe.isMapped(window()); });
        // Reparenting by the window manager moves the window once more after it is mapped.
        settle(100);
    }

    std::uint32_t window() const { return std::uint32_t(form.winId()); }

    template <typename T = QWidget>
    T* find(const char* name)
    {
        return form.findChild<T*>(QString(name));
    }

    std::filesystem::path save(const QImage& picture, const char* name, const char* format = "PNG")
    {
        const auto path = folder.path() / name;
        EXPECT_TRUE(picture.save(text(path), format));
        return path;
    }

    QImage grabStage()
    {
        const capture::PixelRectangle stage = form.stageRectangle();
        return probe.grab({stage.left, stage.top, stage.width, stage.height});
    }

    /// A key of the real keyboard.
    void type(const std::string& keys) { EXPECT_EQ(runToEnd({"xdotool", "key", keys}), 0) << keys; }

    TemporaryFolder folder;
    X11Probe probe;
    forms::X11WindowHints hints;
    forms::Vantry_frm form{hints};
    deck::TaskPane ebDemo{form.ebDemo()};
    bool shown = false;
};

} // namespace quillora::tests
