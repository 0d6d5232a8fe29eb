#pragma once

#include <string>

namespace quillora::session {

/// The fields that the parts of a session share. Most state is text and is compared by its exact value;
/// numbers are decimal text. Hidden controls of the main form count as fields and keep their names and their
/// stored texts, which show up where nothing has been written yet.
struct SessionFields {
    /// "stop", "record" or "pause": the gate that every command asks.
    std::string recordState = "stop";
    /// "hh:mm:ss"; empty until the first tick of the clock, kept after the stop.
    std::string runningTime{};

    /// Number of the slide on the stage, from "1".
    std::string currentSlide{};
    std::string slideCount{};
    /// "Slide 3/12"; empty until a deck was opened.
    std::string slideStatus{};
    /// Written by an import, read by nothing.
    std::string scount_lb{};
    /// "no", then "ppt" after any import that got past its dialog.
    std::string ppt_txt = "no";
    /// Path of the deck.
    std::string Text1 = "PPT fName for resizing the PPT";

    /// "R": no pause yet in this recording. "P": paused at least once; selects the pause-corrected clock.
    std::string Text2 = "R";
    /// Full path of the last saved container, or "no_video".
    std::string asf_name_lb = "no_video";
    /// Full path of the recording's temporary video, and its name alone.
    std::string TempVidFile_txt = "TempVidFile_txt";
    std::string VidTempTitle_txt = "Text9";
    std::string Text5 = "Text5";
    std::string Text7 = "Video File title";

    std::string lang_txt = "eng";
    /// The program's version as the presenter and the container name it.
    std::string version_lb = "Version 3.13.0";
    /// The Workspace's root; whether a separator ends it depends on who wrote it last.
    std::string workspacePath{};

    std::string myMediaType = "slides";
    std::string myWindowMode = "full";
};

} // namespace quillora::session
