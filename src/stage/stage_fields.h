#pragma once

#include <string>

namespace quillora::stage {

/// A rectangle as the rotation keeps it, in twips. Empty until something fills it.
struct RotateRectangle {
    double top = 0;
    double left = 0;
    double height = 0;
    double width = 0;
};

/// Hidden controls of the main form that the stage's operations use as fields, with their stored texts, and
/// the fields of the rotation.
struct StageFields {
    /// "on" once a command has brought the camera frame up; nothing sets it back.
    std::string CamStart_txt = "off";
    /// Never written: whatever changes the layout and finds it so clears status panel 1.
    std::string Text4 = "sleep";
    /// Path of the backdrop chosen last, also of one that could not be loaded.
    std::string background_txt{};
    /// The rotation copies the one to the other.
    std::string slide_txt{};
    std::string slideNow_txt{};

    RotateRectangle rotateSlide{};
    RotateRectangle rotateCam{};
    RotateRectangle rotateDraw{};
    RotateRectangle rotateWhiteboard{};
};

} // namespace quillora::stage
