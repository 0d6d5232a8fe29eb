#include "forms/look.h"

#include "base/rounding.h"

#include <QApplication>
#include <QFont>
#include <QPalette>
#include <QProxyStyle>
#include <QStyleFactory>

namespace quillora::forms {

namespace {

/// The style of the toolkit, less the coloured icons that it puts on the buttons of dialogs.
class Style : public QProxyStyle {
  public:
    Style() : QProxyStyle(QStyleFactory::create(QStringLiteral("Fusion"))) {}

    int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                  QStyleHintReturn* returned) const override
    {
        if (hint == SH_DialogButtonBox_ButtonsHaveIcons)
            return 0;
        return QProxyStyle::styleHint(hint, option, widget, returned);
    }
};

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
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        palette.setColor(QPalette::Disabled, role, colours::kDisabledText);
    palette.setColor(QPalette::Disabled, QPalette::Highlight, colours::kLine);
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
    application.setStyle(new Style);
    application.setPalette(lightPalette());
    application.setFont(textFont());
    application.setWindowIcon(QIcon(QStringLiteral(":/quillora/quillora.svg")));
}

QIcon drawnIcon(const QString& name) { return QIcon(QStringLiteral(":/quillora/icons/%1.svg").arg(name)); }

int pixels(base::Twips length) { return base::roundToInt(double(base::toPixels(length))); }

} // namespace quillora::forms
