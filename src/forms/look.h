#pragma once

#include "base/twips.h"

#include <QColor>
#include <QIcon>
#include <QString>

class QApplication;

namespace quillora::forms {

/// The few colours that the whole window is made of. Assets are drawn against kGround, see
/// tools/draw_assets.py.
namespace colours {
inline constexpr QColor kGround{0xF1, 0xF3, 0xF6};
inline constexpr QColor kSurface{0xFF, 0xFF, 0xFF};
inline constexpr QColor kLine{0xD3, 0xD9, 0xE1};
inline constexpr QColor kText{0x1E, 0x29, 0x36};
inline constexpr QColor kMutedText{0x55, 0x61, 0x70};
inline constexpr QColor kDisabledText{0x9A, 0xA4, 0xB0};
inline constexpr QColor kAccent{0x1F, 0x62, 0xC4};
} // namespace colours

/// Gives every window and dialog of the program one style, palette and font, whatever the desktop's own
/// theme: a lecture is recorded on a stage whose surroundings a presenter should know by heart.
void applyLook(QApplication& application);

/// An icon of the program's own set, by the name of its drawing in assets/icons.
QIcon drawnIcon(const QString& name);

/// A length of the layout in whole pixels of the form.
int pixels(base::Twips length);

} // namespace quillora::forms
