#pragma once

#include "drawing/colour.h"

#include <string>

namespace quillora::drawing {

/// The colour picker `cdlColor`. Modal. Cancel is no failure: `Color` stays what it was when the dialog was
/// last left, and whoever opened it takes that.
class ColourDialog {
  public:
    virtual ~ColourDialog() = default;
    Colour Color = rgb(0, 0, 0);
    virtual void ShowColor() = 0;
};

/// The dialogs that the engine sets up and never opens: a drawing is neither read nor written nor printed.
struct FileDialogSetup {
    int Flags = 0;
    std::string DialogTitle{};
    std::string FileName{};
    std::string Filter{};
};

/// The dialogs of files, fonts and printing, as the engine leaves them.
struct DrawingDialogs {
    FileDialogSetup cdlSave{
        .DialogTitle = "Save As", .FileName = "*.brg", .Filter = "Bitmap Files (*.bmp) |*.bmp"};
    FileDialogSetup cdlOpen{.Filter = "All Picture Files|*.bmp;*.dib;*.gif;*.jpg; *.wma;*.emf;*.ico;*.cur|"
                                      "Bitmaps (*.bmp;*.dib)|*.bmp;*.dib|GIF Images (*.gif)|*.gif|"
                                      "JPEG Images (*.jpg)|*.jpg|MetaFiles (*.wma;*.emf)|*.wma; *.emf|"
                                      "Icons (*.ico;*.cur)|*.ico;*.cur|All Files (*.*)|*.*"};
    FileDialogSetup cdlFonts{};
    FileDialogSetup cdlPrint{};

    /// The flags that they get whenever drawing begins.
    void setFlags();
};

} // namespace quillora::drawing
