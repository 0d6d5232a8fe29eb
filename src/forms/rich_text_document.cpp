#include "forms/rich_text_document.h"

#include "base/rounding.h"
#include "base/twips.h"
#include "forms/form_colour.h"
#include "panels/html_cost.h"

#include <QMap>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>
#include <QTextList>

#include <algorithm>
#include <optional>
#include <string>

namespace quillora::forms {

namespace {

constexpr qsizetype kLongestFontName = 128;

struct Substitute {
    const char* font;
    const char* sameWidths;
};

/// Fonts with the same widths, so that lines break where they would with the font itself.
constexpr Substitute kSubstitutes[] = {
    {"Times New Roman", "Liberation Serif"},
    {"Arial", "Liberation Sans"},
    {"Courier New", "Liberation Mono"},
    {"Calibri", "Carlito"},
    {"Cambria", "Caladea"},
};

/// Documents of strangers name style sheets and pictures; none of it is fetched.
class ClosedDocument : public QTextDocument {
  public:
    using QTextDocument::QTextDocument;

  protected:
    QVariant loadResource(int, const QUrl&) override { return {}; }
};

std::string fontName(const QTextCharFormat& format)
{
    const QStringList families = format.fontFamilies().toStringList();
    QString name = families.isEmpty() ? QString() : families.front();
    // It ends a name where fonts are listed.
    name = name.remove(u';').simplified().left(kLongestFontName);
    return name.isEmpty() ? panels::CharacterFormat().font : name.toStdString();
}

base::Twips fontSize(const QTextCharFormat& format)
{
    double twips = panels::CharacterFormat().size.value;
    if (format.fontPointSize() > 0)
        twips = format.fontPointSize() * base::kTwipsPerPoint;
    else if (format.hasProperty(QTextFormat::FontPixelSize))
        twips = format.intProperty(QTextFormat::FontPixelSize) * base::kTwipsPerPixel;
    return {
        std::clamp(base::roundToInt(twips), panels::kSmallestFontSize.value, panels::kLargestFontSize.value)};
}

bool isBulletStyle(QTextListFormat::Style style)
{
    return style == QTextListFormat::ListDisc || style == QTextListFormat::ListCircle ||
           style == QTextListFormat::ListSquare;
}

/// Reads a document block by block; the numbers of its lists are counted on the way, since the toolkit counts
/// from the first item each time.
class DocumentReader {
  public:
    explicit DocumentReader(std::size_t limit) : m_builder(limit) {}

    /// From the character @p begin up to @p end, without it.
    panels::RichText read(const QTextDocument& document, int begin, int end)
    {
        for (QTextBlock block = document.findBlock(begin);
             block.isValid() && block.position() <= end && !m_builder.full(); block = block.next())
            readBlock(block, begin, end);
        return m_builder.take();
    }

  private:
    void readBlock(const QTextBlock& block, int begin, int end)
    {
        const panels::CharacterFormat mark = fromToolkit(block.charFormat());
        QTextList* list = block.textList();
        const bool bullet = list != nullptr && isBulletStyle(list->format().style());
        if (list != nullptr && !bullet)
            add(QString::number(++m_items[list]) + QStringLiteral(".\t"), mark);
        for (auto at = block.begin(); !at.atEnd(); ++at) {
            const QTextFragment fragment = at.fragment();
            const int from = std::max(begin - fragment.position(), 0);
            const int to = std::min(end - fragment.position(), fragment.length());
            if (from < to)
                add(fragment.text().mid(from, to - from), fromToolkit(fragment.charFormat()));
        }
        m_builder.endParagraph(fromToolkit(block.blockFormat().alignment()), bullet, mark);
    }

    void add(const QString& text, const panels::CharacterFormat& format)
    {
        for (const char32_t character : text.toUcs4())
            m_builder.add(character, format);
    }

    panels::RichTextBuilder m_builder;
    QMap<QTextList*, int> m_items{};
};

/// Adds paragraphs at a cursor.
class DocumentWriter {
  public:
    explicit DocumentWriter(QTextCursor& cursor) : m_cursor(cursor) {}

    void write(const panels::RichText& text, FirstParagraph first)
    {
        for (const panels::Paragraph& paragraph : text.paragraphs) {
            const bool isFirst = &paragraph == &text.paragraphs.front();
            QTextBlockFormat format;
            format.setAlignment(toToolkit(paragraph.alignment));
            if (!isFirst) {
                m_cursor.insertBlock(format, translated(paragraph.mark));
            } else if (first == FirstParagraph::asInTheText) {
                m_cursor.setBlockFormat(format);
                m_cursor.setBlockCharFormat(translated(paragraph.mark));
            }
            if (paragraph.bullet && (!isFirst || first == FirstParagraph::asInTheText))
                makeBullet(m_cursor);
            for (const panels::TextRun& run : paragraph.runs)
                m_cursor.insertText(QString::fromStdString(run.text), translated(run.format));
        }
        m_cursor.setCharFormat(translated(text.paragraphs.back().mark));
    }

  private:
    /// Most neighbours look alike, and the toolkit's formats are slow to make.
    const QTextCharFormat& translated(const panels::CharacterFormat& format)
    {
        if (!m_translated || format != m_last) {
            m_last = format;
            m_translated = toToolkit(format);
        }
        return *m_translated;
    }

    QTextCursor& m_cursor;
    panels::CharacterFormat m_last{};
    std::optional<QTextCharFormat> m_translated{};
};

} // namespace

QTextCharFormat toToolkit(const panels::CharacterFormat& format)
{
    QStringList families{QString::fromStdString(format.font)};
    for (const Substitute& each : kSubstitutes)
        if (format.font == each.font)
            families.append(QString(each.sameWidths));
    QTextCharFormat made;
    made.setFontFamilies(families);
    made.setFontPointSize(format.size.value / base::kTwipsPerPoint);
    made.setForeground(toQColor(format.colour));
    made.setFontWeight(format.bold ? QFont::Bold : QFont::Normal);
    made.setFontItalic(format.italic);
    made.setFontUnderline(format.underline);
    return made;
}

panels::CharacterFormat fromToolkit(const QTextCharFormat& format)
{
    panels::CharacterFormat made;
    made.font = fontName(format);
    made.size = fontSize(format);
    if (format.foreground().style() == Qt::SolidPattern)
        made.colour = toColour(format.foreground().color());
    made.bold = format.fontWeight() > QFont::Medium;
    made.italic = format.fontItalic();
    made.underline = format.fontUnderline();
    return made;
}

Qt::Alignment toToolkit(panels::Alignment alignment)
{
    // Left means left in languages that run from the right, too.
    switch (alignment) {
    case panels::Alignment::right:
        return Qt::AlignRight | Qt::AlignAbsolute;
    case panels::Alignment::centre:
        return Qt::AlignHCenter;
    case panels::Alignment::left:
        break;
    }
    return Qt::AlignLeft | Qt::AlignAbsolute;
}

panels::Alignment fromToolkit(Qt::Alignment alignment)
{
    if (alignment.testFlag(Qt::AlignHCenter))
        return panels::Alignment::centre;
    return alignment.testFlag(Qt::AlignRight) ? panels::Alignment::right : panels::Alignment::left;
}

panels::RichText richTextOf(const QTextDocument& document, std::size_t limit)
{
    return DocumentReader(limit).read(document, 0, document.characterCount());
}

panels::RichText selectedRichText(const QTextCursor& cursor)
{
    return DocumentReader(SIZE_MAX).read(*cursor.document(), cursor.selectionStart(), cursor.selectionEnd());
}

panels::RichText richTextOfHtml(const QString& html, std::size_t limit)
{
    if (!panels::isCheapHtml({QStringView(html).utf16(), static_cast<std::size_t>(html.size())}))
        return {};
    ClosedDocument document;
    document.setUndoRedoEnabled(false);
    document.setHtml(html);
    return richTextOf(document, limit);
}

void makeBullet(QTextCursor& cursor) { cursor.createList(QTextListFormat::ListDisc); }

void insertRichText(QTextCursor& cursor, const panels::RichText& text, FirstParagraph first)
{
    cursor.beginEditBlock();
    cursor.removeSelectedText();
    DocumentWriter(cursor).write(text, first);
    cursor.endEditBlock();
}

} // namespace quillora::forms
