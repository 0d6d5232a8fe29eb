#include "forms/qt_text_rasteriser.h"

#include "forms/drawing_fonts.h"

#include <QFontMetrics>
#include <QImage>
#include <QPainter>
#include <QString>

#include <algorithm>

namespace quillora::forms {

namespace {

QString oneLine(std::string_view text)
{
    QString line = QString::fromUtf8(text);
    std::replace_if(
        line.begin(), line.end(), [](QChar letter) { return letter.unicode() < u' '; }, QChar(u' '));
    return line;
}

} // namespace

drawing::TextSize QtTextRasteriser::measure(const drawing::TextFont& font, std::string_view text)
{
    const QFontMetrics metrics(formFont(font));
    const QString line = oneLine(text);
    // A slanting last letter reaches beyond the place of the next one.
    const int width = std::max(metrics.horizontalAdvance(line), metrics.boundingRect(line).right() + 1);
    return {std::max(width, 0), metrics.height()};
}

void QtTextRasteriser::rasterise(const drawing::TextFont& font, std::string_view text,
                                 const base::PixelRectangle& part, std::span<std::uint8_t> coverage)
{
    QImage letters(part.width, part.height, QImage::Format_Grayscale8);
    letters.fill(0);
    QPainter painter(&letters);
    painter.setFont(formFont(font));
    painter.setPen(Qt::white);
    painter.drawText(QPoint(-part.left, painter.fontMetrics().ascent() - part.top), oneLine(text));
    painter.end();
    auto target = coverage.begin();
    for (int y = 0; y < part.height; ++y)
        target = std::copy_n(letters.constScanLine(y), part.width, target);
}

} // namespace quillora::forms
