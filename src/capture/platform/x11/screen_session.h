#pragma once

#include "capture/platform/x11/damage_tracker.h"
#include "capture/platform/x11/pointer_tracker.h"
#include "capture/platform/x11/screen_reader.h"
#include "capture/platform/x11/x11_connection.h"
#include "capture/screen_source.h"

#include <chrono>
#include <memory>
#include <optional>

namespace quillora::capture {

/// What is known of the screen as long as one connection to its server lasts. It keeps the picture of the
/// region without pointer apart from the one that is handed out, so that a pointer which moves uncovers what
/// was under it without another look at the screen.
///
/// All operations throw std::runtime_error; when broken() is true after that, the session is of no more use.
class ScreenSession {
  public:
    using Clock = ConnectionWatchdog::Clock;

    ScreenSession(const std::optional<std::string>& displayName, Clock::time_point since);

    ConnectionWatchdog& watchdog() const { return m_connection.watchdog(); }
    bool broken() const { return m_connection.broken(); }

    ScreenSession(const ScreenSession&) = delete;
    ScreenSession& operator=(const ScreenSession&) = delete;

    /// As in ScreenSource.
    ScreenSource::Grab grab(const PixelRectangle& region, const PointerDrawing& drawing, ScreenImage& image);
    PixelRectangle screen();
    PixelPoint pointer();

  private:
    /// How often the whole region is read and compared although no damage was told.
    static constexpr std::chrono::milliseconds kSafetyPeriod{500};

    /// The pointer as it is drawn into the image, in pixels of the image.
    struct PointerView {
        PointerDrawing drawing{};
        /// Nothing when it isn't drawn, or is on another screen.
        std::optional<PixelPoint> position{};
        /// Empty when nothing of it is in the image.
        PixelRectangle area{};
        bool newCursor = false;
    };

    void handleEvents();
    void updateScreenSize();
    PointerView lookAtPointer(const PointerDrawing& drawing);

    PixelRectangle updatePicture(bool& whole);
    bool useScreenPart(const PixelRectangle& visible);
    PixelRectangle compareAndKeep(const PixelRectangle& part);

    PixelRectangle visibleInImage() const;
    PixelRectangle pointerArea(const PointerView& pointer);
    void showPicture(const PixelRectangle& area, ScreenImage& image) const;
    void paintPointer(const PointerView& pointer, ScreenImage& image);

    X11Connection m_connection;
    DamageTracker m_damage{m_connection};
    PointerTracker m_pointer{m_connection};
    ScreenReader m_reader{m_connection};

    PixelRectangle m_screen{};
    bool m_screenSizeKnown = false;

    /// What the image shows: nothing before the first grab and after a failed one.
    bool m_imageValid = false;
    PixelRectangle m_region{};
    PointerView m_shownPointer{};

    /// The part of the region that lies on the screen, and its picture without pointer.
    PixelRectangle m_visible{};
    std::unique_ptr<PictureBuffer> m_picture{};
    /// What is read from the screen, before it is compared with the picture.
    std::unique_ptr<PictureBuffer> m_fresh{};
    Clock::time_point m_lastFullRead{};
};

} // namespace quillora::capture
