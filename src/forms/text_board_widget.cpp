#include "forms/text_board_widget.h"

#include "base/rounding.h"
#include "base/skip_failures.h"
#include "base/twips.h"
#include "forms/form_colour.h"
#include "forms/input_values.h"
#include "forms/rich_text_document.h"
#include "panels/rtf_reader.h"
#include "panels/rtf_writer.h"

#include <QAbstractTextDocumentLayout>
#include <QKeyEvent>
#include <QMimeData>
#include <QTextBlock>
#include <QTextList>

#include <algorithm>
#include <stdexcept>

namespace quillora::forms {

namespace {

constexpr int kDotsPerInch = 96;
constexpr double kMargin = 8;
constexpr int kCaretWidth = 2;

/// Names under which programs put RTF on the clipboard.
constexpr const char* kRtfTypes[] = {"text/rtf", "application/rtf", "text/richtext"};
constexpr const char* kHtmlType = "text/html";
constexpr const char* kPlainType = "text/plain";

/// On the stage a pixel is 15 twips, and so a point 4/3 of a pixel, whatever the desktop says of its screen:
/// the same words fill the same part of the lecture on every machine.
class Viewport : public QWidget {
  public:
    using QWidget::QWidget;

  protected:
    int metric(PaintDeviceMetric metric) const override
    {
        return metric == PdmDpiX || metric == PdmDpiY ? kDotsPerInch : QWidget::metric(metric);
    }
};

bool isTypedWithAlt(const QKeyEvent& event)
{
    return event.modifiers().testFlag(Qt::AltModifier) && !event.modifiers().testFlag(Qt::ControlModifier) &&
           !event.text().isEmpty() && event.text().front().isPrint();
}

QByteArray rtfOf(const QMimeData& source)
{
    for (const char* type : kRtfTypes)
        if (source.hasFormat(type))
            return source.data(type);
    return {};
}

/// A text without one character would be none of the paragraphs that stand there.
bool saysSomething(const panels::RichText& text)
{
    return text.paragraphs.size() > 1 || !text.paragraphs.front().runs.empty();
}

} // namespace

TextBoardWidget::TextBoardWidget(QWidget* parent) : QTextEdit(parent)
{
    setObjectName("textBoard_txt");
    setAccessibleName(tr("Text board"));
    setFrameShape(QFrame::NoFrame);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setCursorWidth(kCaretWidth);

    setViewport(new Viewport);
    for (auto* part : findChildren<QWidget*>())
        part->setAccessibleName(accessibleName());
    viewport()->setBackgroundRole(QPalette::Base);
    viewport()->setAutoFillBackground(true);
    viewport()->setCursor(Qt::IBeamCursor);
    viewport()->setAcceptDrops(true);
    document()->documentLayout()->setPaintDevice(viewport());
    document()->setDocumentMargin(kMargin);
    setFont(toToolkit(panels::CharacterFormat()).font());

    QPalette board = palette();
    board.setColor(QPalette::Base, Qt::white);
    board.setColor(QPalette::Text, Qt::black);
    setPalette(board);
}

std::string TextBoardWidget::Text() const { return panels::plainText(richTextOf(*document(), SIZE_MAX)); }

void TextBoardWidget::setText(const std::string& text)
{
    replaceAll(panels::fromPlainText(text, {}, kMostCharacters));
}

std::string TextBoardWidget::TextRTF() const { return panels::writeRtf(richTextOf(*document(), SIZE_MAX)); }

void TextBoardWidget::setTextRTF(const std::string& rtf)
{
    if (rtf.empty())
        setText("");
    else
        replaceAll(panels::readRtf(rtf, {.characters = kMostCharacters}));
}

void TextBoardWidget::replaceAll(const panels::RichText& text)
{
    QTextCursor cursor(document());
    cursor.beginEditBlock();
    cursor.select(QTextCursor::Document);
    insertRichText(cursor, text, FirstParagraph::asInTheText);
    cursor.endEditBlock();
    cursor.movePosition(QTextCursor::Start);
    setTextCursor(cursor);
}

template <typename Value>
std::optional<Value> TextBoardWidget::commonFormat(Value panels::CharacterFormat::*value) const
{
    const QTextCursor cursor = textCursor();
    if (!cursor.hasSelection())
        return fromToolkit(cursor.charFormat()).*value;
    const int begin = cursor.selectionStart();
    const int end = cursor.selectionEnd();
    std::optional<Value> common;
    const auto agrees = [&](const QTextCharFormat& format) {
        const Value one = fromToolkit(format).*value;
        const bool same = !common || *common == one;
        common = one;
        return same;
    };
    for (QTextBlock block = document()->findBlock(begin); block.isValid() && block.position() < end;
         block = block.next()) {
        for (auto at = block.begin(); !at.atEnd(); ++at) {
            const QTextFragment fragment = at.fragment();
            if (fragment.position() < end && fragment.position() + fragment.length() > begin &&
                !agrees(fragment.charFormat()))
                return std::nullopt;
        }
    }
    // Nothing but ends of paragraphs.
    return common ? common : fromToolkit(document()->findBlock(begin).charFormat()).*value;
}

void TextBoardWidget::mergeFormat(const QTextCharFormat& format)
{
    QTextCursor cursor = textCursor();
    cursor.beginEditBlock();
    // A paragraph's own format goes with that of its whole text: its bullet has it, and what is typed at its
    // end.
    QTextBlock first = document()->findBlock(cursor.selectionStart());
    if (first.position() < cursor.selectionStart())
        first = first.next();
    QTextBlock last = document()->findBlock(cursor.selectionEnd());
    if (last.position() + last.length() - 1 > cursor.selectionEnd())
        last = last.previous();
    if (first.isValid() && last.isValid() && first.position() <= last.position()) {
        QTextCursor whole(first);
        whole.setPosition(last.position(), QTextCursor::KeepAnchor);
        whole.mergeBlockCharFormat(format);
    }
    cursor.endEditBlock();
    mergeCurrentCharFormat(format);
}

std::optional<base::Colour> TextBoardWidget::SelColor() const
{
    return commonFormat(&panels::CharacterFormat::colour);
}

void TextBoardWidget::setSelColor(base::Colour colour)
{
    QTextCharFormat format;
    format.setForeground(toQColor(colour));
    mergeFormat(format);
}

std::optional<double> TextBoardWidget::SelFontSize() const
{
    const auto size = commonFormat(&panels::CharacterFormat::size);
    return size ? std::optional(size->value / base::kTwipsPerPoint) : std::nullopt;
}

void TextBoardWidget::setSelFontSize(double points)
{
    const double twips = points * base::kTwipsPerPoint;
    if (!(twips >= panels::kSmallestFontSize.value && twips <= panels::kLargestFontSize.value))
        throw std::out_of_range("font size that the board does not take");
    QTextCharFormat format;
    format.setFontPointSize(base::roundToInt(twips) / base::kTwipsPerPoint);
    mergeFormat(format);
}

std::optional<bool> TextBoardWidget::SelBold() const { return commonFormat(&panels::CharacterFormat::bold); }

void TextBoardWidget::setSelBold(bool bold)
{
    QTextCharFormat format;
    format.setFontWeight(bold ? QFont::Bold : QFont::Normal);
    mergeFormat(format);
}

std::optional<bool> TextBoardWidget::SelItalic() const
{
    return commonFormat(&panels::CharacterFormat::italic);
}

void TextBoardWidget::setSelItalic(bool italic)
{
    QTextCharFormat format;
    format.setFontItalic(italic);
    mergeFormat(format);
}

std::optional<bool> TextBoardWidget::SelUnderline() const
{
    return commonFormat(&panels::CharacterFormat::underline);
}

void TextBoardWidget::setSelUnderline(bool underline)
{
    QTextCharFormat format;
    format.setFontUnderline(underline);
    mergeFormat(format);
}

QTextCursor TextBoardWidget::paragraphs() const
{
    QTextCursor cursor = textCursor();
    const int end = cursor.selectionEnd();
    // A selection that ends with the end of a paragraph doesn't reach into the next one.
    const bool endsBefore = cursor.hasSelection() && document()->findBlock(end).position() == end;
    const int begin = cursor.selectionStart();
    cursor.setPosition(begin);
    cursor.setPosition(endsBefore ? end - 1 : end, QTextCursor::KeepAnchor);
    return cursor;
}

template <typename Read>
auto TextBoardWidget::commonInParagraphs(Read&& read) const -> std::optional<decltype(read(QTextBlock()))>
{
    const QTextCursor cursor = paragraphs();
    QTextBlock block = document()->findBlock(cursor.selectionStart());
    const auto first = read(block);
    for (block = block.next(); block.isValid() && block.position() <= cursor.selectionEnd();
         block = block.next())
        if (read(block) != first)
            return std::nullopt;
    return first;
}

std::optional<panels::Alignment> TextBoardWidget::SelAlignment() const
{
    return commonInParagraphs(
        [](const QTextBlock& block) { return fromToolkit(block.blockFormat().alignment()); });
}

void TextBoardWidget::setSelAlignment(panels::Alignment alignment)
{
    QTextBlockFormat format;
    format.setAlignment(toToolkit(alignment));
    paragraphs().mergeBlockFormat(format);
}

std::optional<bool> TextBoardWidget::SelBullet() const
{
    return commonInParagraphs([](const QTextBlock& block) { return block.textList() != nullptr; });
}

void TextBoardWidget::setSelBullet(bool bullet)
{
    QTextCursor cursor = paragraphs();
    cursor.beginEditBlock();
    for (QTextBlock block = document()->findBlock(cursor.selectionStart());
         block.isValid() && block.position() <= cursor.selectionEnd(); block = block.next()) {
        QTextCursor paragraph(block);
        if (!bullet) {
            QTextBlockFormat format = block.blockFormat();
            format.setObjectIndex(-1);
            format.setIndent(0);
            paragraph.setBlockFormat(format);
        } else if (block.textList() == nullptr) {
            makeBullet(paragraph);
        }
    }
    cursor.endEditBlock();
}

bool TextBoardWidget::event(QEvent* event)
{
    // Keys that the window knows for turning slides move the caret here.
    if (event->type() == QEvent::ShortcutOverride &&
        !(static_cast<QKeyEvent*>(event)->modifiers() &
          (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier))) {
        event->accept();
        return true;
    }
    return QTextEdit::event(event);
}

void TextBoardWidget::keyPressEvent(QKeyEvent* event)
{
    if (!event->isAutoRepeat())
        emit KeyDown(event->key(), shiftValue(event->modifiers()));
    // Tab is text here, so that another key has to lead out by the keyboard.
    if (event->modifiers().testFlag(Qt::ControlModifier) &&
        (event->key() == Qt::Key_Tab || event->key() == Qt::Key_Backtab)) {
        QWidget::focusNextPrevChild(event->key() == Qt::Key_Tab);
        return;
    }
    // A letter with Alt is a command, here or elsewhere in the window, and never text.
    if (isTypedWithAlt(*event))
        event->ignore();
    else
        QTextEdit::keyPressEvent(event);
}

void TextBoardWidget::hideEvent(QHideEvent* event)
{
    // The toolkit would go on to a button, and the presenter's next Space would press it.
    if (hasFocus() && parentWidget() != nullptr)
        parentWidget()->setFocus();
    QTextEdit::hideEvent(event);
}

bool TextBoardWidget::canInsertFromMimeData(const QMimeData* source) const
{
    return source->hasFormat(kPlainType) || source->hasFormat(kHtmlType) || !rtfOf(*source).isEmpty();
}

void TextBoardWidget::insertFromMimeData(const QMimeData* source)
{
    panels::RichText pasted;
    base::skipFailures([&] {
        const QByteArray rtf = rtfOf(*source);
        const std::string_view stream(rtf.constData(), static_cast<std::size_t>(rtf.size()));
        if (panels::isRtf(stream))
            pasted = panels::readRtf(stream, {.characters = kMostCharacters});
    });
    if (!saysSomething(pasted) && source->hasFormat(kHtmlType))
        pasted = richTextOfHtml(source->html(), kMostCharacters);
    QTextCursor cursor = textCursor();
    if (!saysSomething(pasted) && source->hasFormat(kPlainType))
        pasted = panels::fromPlainText(source->text().left(qsizetype{kMostCharacters}).toStdString(),
                                       fromToolkit(cursor.charFormat()), kMostCharacters);
    if (!saysSomething(pasted))
        return;
    // A word takes the look of the paragraph that it is put into; whole paragraphs bring theirs.
    const bool onItsOwn = pasted.paragraphs.size() > 1 && cursor.block().length() == 1;
    insertRichText(cursor, pasted, onItsOwn ? FirstParagraph::asInTheText : FirstParagraph::asItWas);
    setTextCursor(cursor);
    ensureCursorVisible();
}

QMimeData* TextBoardWidget::createMimeDataFromSelection() const
{
    const panels::RichText text = selectedRichText(textCursor());
    auto* copied = new QMimeData;
    copied->setText(
        QString::fromStdString(panels::plainText(text)).replace("\r\n", "\n").replace(u'\v', u'\n'));
    copied->setData(kRtfTypes[0], QByteArray::fromStdString(panels::writeRtf(text)));
    return copied;
}

} // namespace quillora::forms
