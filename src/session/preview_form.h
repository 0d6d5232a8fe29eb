#pragma once

#include <string>

namespace quillora::session {

/// The player `WindowsMediaPlayer1` of the form `preview_frm`. What it can't play leaves it idle, without a
/// word.
class VideoPlayer {
  public:
    virtual ~VideoPlayer() = default;

    /// Path of the video. One that names no video at all unloads what was there.
    virtual void setURL(const std::string& path) = 0;
    virtual void play() = 0;
};

/// What the logic asks of the form `preview_frm`.
class PreviewForm {
  public:
    virtual ~PreviewForm() = default;

    /// Makes the form with a player that has nothing loaded. Harmless where it is made already.
    virtual void load() = 0;
    /// Shows the form, owned by the main form, and returns when it was unloaded.
    virtual void showModal() = 0;
    /// Takes the form off the screen, and the player with it.
    virtual void unload() = 0;
    /// The player of the form that is loaded.
    virtual VideoPlayer& WindowsMediaPlayer1() = 0;
};

} // namespace quillora::session
