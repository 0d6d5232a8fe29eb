#include "drawing/drawing_messages.h"

namespace quillora::drawing {
namespace {

std::string messageText(DrawingError code, const std::string& text)
{
    switch (code) {
    case DrawingError::asGiven:
        return text;
    case DrawingError::cannotWrite:
        return "Cannot write to the disk.\r\n\r\nMake sure the disk is not full or write-protected.";
    case DrawingError::cannotPrint:
        return "Cannot print the file.\r\n\r\nMake sure the print is ready.";
    case DrawingError::cannotOpen:
        return "Cannot open the file.\r\n\r\nThe file may be corrupt or not a valid picture file.";
    case DrawingError::cannotDraw:
        return "Cannot drawing using the selected tool.\r\n\r\nThe needed file may be missing.";
    }
    return text;
}

} // namespace

void ShowError(base::MessageBoxes& boxes, DrawingError code, const std::string& text)
{
    boxes.show({.text = messageText(code, text), .icon = base::BoxIcon::critical});
}

} // namespace quillora::drawing
