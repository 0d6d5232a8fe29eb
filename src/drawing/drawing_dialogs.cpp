#include "drawing/drawing_dialogs.h"

namespace quillora::drawing {
namespace {

// The platform's numbers for what a common dialog shows and insists on.
constexpr int kHideReadOnly = 0x4;
constexpr int kOverwritePrompt = 0x2;
constexpr int kPathMustExist = 0x800;
constexpr int kFileMustExist = 0x1000;
constexpr int kScreenAndPrinterFonts = 0x3;
constexpr int kFontEffects = 0x100;
constexpr int kFontMustExist = 0x10000;
constexpr int kNoPageNumbers = 0x8;
constexpr int kNoSelection = 0x4;

} // namespace

void DrawingDialogs::setFlags()
{
    cdlSave.Flags = kHideReadOnly | kOverwritePrompt | kPathMustExist;
    cdlOpen.Flags = kHideReadOnly | kFileMustExist;
    cdlFonts.Flags = kScreenAndPrinterFonts | kFontEffects | kFontMustExist;
    cdlPrint.Flags = kNoPageNumbers | kNoSelection;
}

} // namespace quillora::drawing
