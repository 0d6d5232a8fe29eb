#pragma once

#include "capture/screen_source.h"

#include <chrono>
#include <memory>
#include <optional>
#include <string>

namespace quillora::capture {

class ScreenSession;

/// The screen of an X display. It has a connection of its own, made at the first use and again after it was
/// lost, with growing pauses between attempts; while there is none, every operation throws at once.
class X11ScreenSource final : public ScreenSource {
  public:
    /// @p displayName is what DISPLAY names where it is left out.
    explicit X11ScreenSource(std::optional<std::string> displayName = std::nullopt);
    ~X11ScreenSource() override;

    Grab grab(const PixelRectangle& region, const PointerDrawing& pointer) override;
    PixelRectangle screen() override;
    PixelPoint pointer() override;

  private:
    using Clock = std::chrono::steady_clock;
    static constexpr std::chrono::milliseconds kFirstPause{100};
    static constexpr std::chrono::milliseconds kLongestPause{2000};

    template <typename Operation>
    auto withSession(const Operation& operation);
    void openSession(Clock::time_point now);
    void loseSession();

    std::optional<std::string> m_displayName;
    std::unique_ptr<ScreenSession> m_session;
    Clock::time_point m_nextAttempt{};
    std::chrono::milliseconds m_pause = kFirstPause;
};

} // namespace quillora::capture
