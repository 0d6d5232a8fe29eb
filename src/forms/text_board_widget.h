#pragma once

// First, since moc 6.4 stumbles over <compare> where no header of the toolkit came before it.
#include <QTextEdit>

#include "panels/rich_text_control.h"

namespace quillora::forms {

/// `textBoard_txt`, the rich text control on the stage. It is recorded, so nothing shows but the text: no
/// frame, no scroll bars, black Times New Roman on white whatever the desktop's theme. It holds what
/// panels::RichText can, and of what is pasted takes that and nothing else.
class TextBoardWidget : public QTextEdit, public panels::RichTextControl {
    Q_OBJECT

  public:
    /// The most characters that the board takes at once, from the clipboard or by a property: some 20,000
    /// full lines. The window would be at a standstill for seconds with more.
    static constexpr std::size_t kMostCharacters = 1'000'000;

    explicit TextBoardWidget(QWidget* parent);

    std::string Text() const override;
    void setText(const std::string& text) override;
    std::string TextRTF() const override;
    void setTextRTF(const std::string& rtf) override;
    std::optional<base::Colour> SelColor() const override;
    void setSelColor(base::Colour colour) override;
    std::optional<double> SelFontSize() const override;
    void setSelFontSize(double points) override;
    std::optional<bool> SelBold() const override;
    void setSelBold(bool bold) override;
    std::optional<bool> SelItalic() const override;
    void setSelItalic(bool italic) override;
    std::optional<bool> SelUnderline() const override;
    void setSelUnderline(bool underline) override;
    std::optional<panels::Alignment> SelAlignment() const override;
    void setSelAlignment(panels::Alignment alignment) override;
    std::optional<bool> SelBullet() const override;
    void setSelBullet(bool bullet) override;

  signals:
    /// Before the control itself takes the key. @p keyCode: a letter's is that of its capital; @p shift: the
    /// sum of 1 Shift, 2 Ctrl, 4 Alt. A key that is held down is told once.
    void KeyDown(int keyCode, int shift);

  protected:
    bool event(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    bool canInsertFromMimeData(const QMimeData* source) const override;
    void insertFromMimeData(const QMimeData* source) override;
    QMimeData* createMimeDataFromSelection() const override;

  private:
    void replaceAll(const panels::RichText& text);
    void mergeFormat(const QTextCharFormat& format);
    /// Of the whole paragraphs that the selection touches.
    QTextCursor paragraphs() const;
    template <typename Value>
    std::optional<Value> commonFormat(Value panels::CharacterFormat::*value) const;
    template <typename Read>
    auto commonInParagraphs(Read&& read) const -> std::optional<decltype(read(QTextBlock()))>;
};

} // namespace quillora::forms
