#pragma once

#include <string>

namespace quillora::capture {

/// What the presenter set for the next recordings: the values of the options form's controls, under the names
/// of the controls. They live as long as the process and are kept nowhere else; a new object has the
/// defaults.
///
/// Numbers are texts and not validated: who takes one up reads it with base::leadingNumber().
struct CaptureSettings {
    /// Frames per second.
    std::string txtfps = "24";
    /// Kilobits of video per second.
    std::string bitrate_txt = "700";
    bool capturecursor_chk = true;
    bool highlightCursor_chk = false;

    bool operator==(const CaptureSettings&) const = default;
};

/// Diameter of the highlight in pixels, the same for every recording.
inline constexpr int kHighlightSize = 35;

/// Size of the video frame. One column less than the stage has, since the codec takes even widths only.
inline constexpr int kOutputWidth = 746;
inline constexpr int kOutputHeight = 420;

} // namespace quillora::capture
