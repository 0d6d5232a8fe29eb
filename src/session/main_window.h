#pragma once

#include "capture/pixel_rectangle.h"

#include <filesystem>
#include <string>
#include <string_view>

namespace quillora::session {

/// What the logic asks of the main form `Vantry_frm`. Every operation shows something or reads something;
/// none decides. Called on the one thread of forms and logic.
class MainWindow {
  public:
    virtual ~MainWindow() = default;

    /// Centres the form on the screen.
    virtual void center_form() = 0;
    virtual void setCaption(const std::string& text) = 0;
    /// Panel numbers of `StatusBar1`, from 1 to 6.
    virtual void setStatusPanel(int panel, const std::string& text) = 0;
    virtual std::string statusPanel(int panel) const = 0;
    /// `ButtonVisible(key)` of the toolbar `main_TB`.
    virtual void setButtonVisible(std::string_view key, bool visible) = 0;

    /// The image `countDown_trans`.
    virtual void setCountdownVisible(bool visible) = 0;
    virtual void setCountdownPicture(const std::filesystem::path& picture) = 0;
    /// The button `changeback_btn`.
    virtual void setChangeBackVisible(bool visible) = 0;
    /// Pointer of the form: a custom one from a cursor file, or the default one for an empty path.
    virtual void setMousePointer(const std::filesystem::path& cursor) = 0;
    /// Pointer of the stage `Picture1`, likewise.
    virtual void setStagePointer(const std::filesystem::path& cursor) = 0;

    /// Keeps the window above all others, or puts it back among them. Size, place and focus stay.
    virtual void SetTopMost(bool flag) = 0;
    virtual bool hasMinimizeBox() const = 0;
    virtual void setHasMinimizeBox(bool present) = 0;
    /// Takes away, or gives back, the means by which the presenter moves the window.
    virtual void setMoveLocked(bool locked) = 0;

    /// Puts the form on the screen, or takes it off. Returns when that has happened, or when it takes too
    /// long: what is recorded next must show the form whole, or not at all.
    virtual void setFormVisible(bool visible) = 0;
    /// Whether the form answers to the presenter.
    virtual void setFormEnabled(bool enabled) = 0;
    /// Of the frame `Shape` around the stage only the line remains.
    virtual void makeShapeTransparent() = 0;

    /// The stage `Picture1` on the screen, in physical pixels.
    virtual capture::PixelRectangle stageRectangle() const = 0;

    /// Handles the events that are waiting, except what the presenter does, then returns.
    virtual void processPendingEvents() = 0;
};

} // namespace quillora::session
