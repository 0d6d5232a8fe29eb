#include "drawing/tool_cursor.h"

namespace quillora::drawing {

void showCursor(DrawingCanvas& canvas, DrawingAssets& assets, std::string_view fileName)
{
    assets.loadCursor(fileName);
    canvas.picPaint.MouseIcon = fileName;
}

void ApplyToolCursor(DrawingCanvas& canvas, DrawingAssets& assets)
{
    auto& pointer = canvas.picPaint;
    pointer.MousePointer = kCustomCursor;
    const auto cursor = toolCursor(canvas.fields.currentTool);
    if (!cursor.empty()) {
        showCursor(canvas, assets, cursor);
        return;
    }
    pointer.MousePointer = kSystemArrow;
    pointer.MouseIcon.clear();
}

} // namespace quillora::drawing
