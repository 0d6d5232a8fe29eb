#pragma once

#include "panels/rich_text.h"

#include <QTextCharFormat>

#include <cstddef>

class QString;
class QTextCursor;
class QTextDocument;

namespace quillora::forms {

/// Between what the board can hold and the toolkit's documents, which can hold more.

QTextCharFormat toToolkit(const panels::CharacterFormat& format);
/// What @p format doesn't say is as it is on an untouched board.
panels::CharacterFormat fromToolkit(const QTextCharFormat& format);

Qt::Alignment toToolkit(panels::Alignment alignment);
panels::Alignment fromToolkit(Qt::Alignment alignment);

/// The first @p limit characters of @p document. Numbers of lists become part of the text.
panels::RichText richTextOf(const QTextDocument& document, std::size_t limit);

/// What the cursor has selected; a paragraph of which a part is selected brings its alignment and bullet.
panels::RichText selectedRichText(const QTextCursor& cursor);

/// Reads a stranger's HTML, as far as the board can hold it; nothing that it names is loaded. Empty where the
/// toolkit would take too long.
panels::RichText richTextOfHtml(const QString& html, std::size_t limit);

/// Gives the cursor's paragraph a bullet. Each has a list of its own: in the toolkit a list takes time by the
/// square of its length, and bullets have no numbers that would join them.
void makeBullet(QTextCursor& cursor);

/// Whose alignment and bullet the paragraph has in which a text begins.
enum class FirstParagraph { asItWas, asInTheText };

/// Puts @p text in the place of the cursor's selection and leaves the cursor behind it, as one step to undo.
void insertRichText(QTextCursor& cursor, const panels::RichText& text, FirstParagraph first);

} // namespace quillora::forms
