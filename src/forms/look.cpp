#include "forms/look.h"

#include "base/rounding.h"

#include <QApplication>
#include <QFont>
#include <QPalette>
#include <QStyleFactory>

namespace quillora::forms {

namespace {

QPalette lightPalette()
{
    QPalette palette(colours::kSurface, colours::kGround);
    palette.setColor(QPalette::Base, colours::kSurface);
    palette.setColor(QPalette::AlternateBase, colours::kGround);
    palette.setColor(QPalette::WindowText, colours::kText);
    palette.setColor(QPalette::Text, colours::kText);
    palette.setColor(QPalette::ButtonText, colours::kText);
    palette.setColor(QPalette::PlaceholderText, colours::kMutedText);
    palette.setColor(QPalette::Highlight, colours::kAccent);
    palette.setColor(QPalette::HighlightedText, colours::kSurface);
    palette.setColor(QPalette::Link, colours::kAccent);
    palette.setColor(QPalette::ToolTipBase, colours::kSurface);
    palette.setColor(QPalette::ToolTipText, colours::kText);
    return palette;
}

/// In pixels, not points: the layout is fixed in pixels, and a desktop with large text scales all of it
/// together by the device pixel ratio.
QFont textFont()
{
    QFont font;
    font.setFamilies({QStringLiteral("Liberation Sans"), QStringLiteral("DejaVu Sans Condensed"),
                      QStringLiteral("Sans Serif")});
    font.setPixelSize(14);
    return font;
}

} // namespace

void applyLook(QApplication& application)
{
    application.setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
    application.setPalette(lightPalette());
    application.setFont(textFont());
    application.setWindowIcon(QIcon(QStringLiteral(":/quillora/quillora.svg")));
}

QIcon drawnIcon(const QString& name) { return QIcon(QStringLiteral(":/quillora/icons/%1.svg").arg(name)); }

int pixels(base::Twips length) { return base::roundToInt(double(base::toPixels(length))); }

} // namespace quillora::forms
