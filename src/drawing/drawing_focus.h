#pragma once

namespace quillora::drawing {

/// Where the keyboard goes. Taking the focus from the text box tells it so (`txtText_LostFocus`).
///
/// A press on the canvas gives the canvas the focus when its handler has run, not before: the press tells the
/// text box that it is being moved, and only then may the box learn that it lost the focus. After a press
/// that opened or moved the box, the focus goes on to the box.
class DrawingFocus {
  public:
    virtual ~DrawingFocus() = default;
    virtual void focusCanvas() = 0;
    virtual void focusText() = 0;
};

} // namespace quillora::drawing
