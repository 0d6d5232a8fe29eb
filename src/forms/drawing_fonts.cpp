#include "forms/drawing_fonts.h"

#include "base/rounding.h"
#include "base/twips.h"

#include <QStringList>

namespace quillora::forms {

namespace {

QStringList families(const std::string& name)
{
    QStringList families{QString::fromStdString(name)};
    if (name == "Verdana")
        families << QStringLiteral("DejaVu Sans") << QStringLiteral("Bitstream Vera Sans");
    else if (name == "Arial")
        families << QStringLiteral("Liberation Sans") << QStringLiteral("Arimo");
    return families << QStringLiteral("Sans Serif");
}

} // namespace

QFont formFont(const drawing::TextFont& font)
{
    QFont made;
    made.setFamilies(families(font.name));
    made.setPixelSize(base::roundToInt(font.sizePoints * base::kTwipsPerPoint / base::kTwipsPerPixel));
    made.setBold(font.bold);
    made.setItalic(font.italic);
    made.setUnderline(font.underline);
    made.setStrikeOut(font.strikethru);
    return made;
}

} // namespace quillora::forms
