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

/// What is known of the screen as long as one connection to its server lasts. It hands out the very memory
/// that the server wrote into, where the layout allows it: copying a picture costs more than reading it. The
/// pointer is painted there, and what is under it kept, so that a pointer which moves uncovers that without
/// another look at the screen.
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
    ScreenSource::Grab grab(const PixelRectangle& region, const PointerDrawing& drawing);
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

    /// After so many changes of everything in a row the next one is expected.
    static constexpr int kMotionFrames = 12;

    void handleEvents();
    void updateScreenSize();
    PointerView lookAtPointer(const PointerDrawing& drawing);

    PixelRectangle updatePicture(bool& whole);
    bool changesAllTheTime() const;
    bool useScreenPart(const PixelRectangle& visible);
    PixelRectangle compareAndKeep(const PixelRectangle& part);

    PixelRectangle visibleInImage() const;
    PixelRectangle pointerArea(const PointerView& pointer);
    bool handsOutPicture() const;
    std::uint8_t* imagePixels();
    void composeImage(const PixelRectangle& area);
    void uncover();
    void paintPointer(const PointerView& pointer);

    X11Connection m_connection;
    DamageTracker m_damage{m_connection};
    PointerTracker m_pointer{m_connection};
    ScreenReader m_reader{m_connection};

    PixelRectangle m_screen{};
    bool m_screenSizeKnown = false;

    /// What was handed out: nothing before the first grab and after a failed one.
    bool m_imageValid = false;
    PixelRectangle m_region{};
    PointerView m_shownPointer{};
    /// What the pointer covers of the image.
    ScreenImage m_covered{};
    /// The image where the picture can't be handed out: in another layout, or reaching beyond the screen.
    ScreenImage m_composed{};

    /// The part of the region that lies on the screen, and its picture.
    PixelRectangle m_visible{};
    std::unique_ptr<PictureBuffer> m_picture{};
    /// What is read from the screen, before it is compared with the picture.
    std::unique_ptr<PictureBuffer> m_fresh{};
    Clock::time_point m_lastFullRead{};
    int m_wholeChanges = 0;
};

} // namespace quillora::capture
