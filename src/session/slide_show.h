#pragma once

namespace quillora::session {

/// The slides on the stage, as the session asks for them. A picture that is missing leaves the stage as it
/// was.
class SlideShow {
  public:
    virtual ~SlideShow() = default;
    /// Puts the picture that the recorder starts with on the stage. Never throws.
    virtual void showStartPicture() = 0;
    /// Shows the slide `currentSlide`, and the one after it in the preview. Never throws.
    virtual void LoadSlide() = 0;
    /// Fits the pictures to the place that they have. Throws std::runtime_error when it can't.
    virtual void ResizeSlide() = 0;
};

} // namespace quillora::session
