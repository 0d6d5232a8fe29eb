#pragma once

#include "app/text_board_parts.h"
#include "forms/text_board_widget.h"
#include "forms/text_panel.h"
#include "panels/rtf_reader.h"
#include "panels/text_board.h"
#include "tests/forms/form_fixture.h"

#include <QAbstractButton>
#include <QApplication>
#include <QClipboard>
#include <QMimeData>

#include <string>
#include <utility>
#include <vector>

namespace quillora::tests {

/// The board and its panel in a window of their own, with the commands behind them.
class TextBoardFormTest : public testing::Test {
  protected:
    TextBoardFormTest()
    {
        window.resize(960, 440);
        widget.setGeometry(0, 0, 747, 420);
        panel.move(760, 10);
        window.show();
        shown = waitUntil([&] {
            window.activateWindow();
            return window.isActiveWindow();
        });
        tests::settle(100);
        widget.setFocus();
    }

    void type(const std::string& text)
    {
        EXPECT_EQ(runToEnd({"xdotool", "type", text}), 0);
        settle();
    }
    void key(const std::string& keys)
    {
        EXPECT_EQ(runToEnd({"xdotool", "key", keys}), 0);
        settle();
    }
    static void settle() { tests::settle(80); }
    void click(const char* control)
    {
        auto* button = window.findChild<QAbstractButton*>(control);
        ASSERT_NE(button, nullptr) << control;
        const QPoint at = button->mapToGlobal(button->rect().center());
        EXPECT_EQ(
            runToEnd({"xdotool", "mousemove", std::to_string(at.x()), std::to_string(at.y()), "click", "1"}),
            0);
        settle();
    }
    void select(int from, int to)
    {
        QTextCursor cursor = widget.textCursor();
        cursor.setPosition(from);
        cursor.setPosition(to, QTextCursor::KeepAnchor);
        widget.setTextCursor(cursor);
    }
    void paste(const std::vector<std::pair<const char*, QByteArray>>& formats)
    {
        auto* data = new QMimeData;
        for (const auto& [type, contents] : formats)
            data->setData(type, contents);
        QApplication::clipboard()->setMimeData(data);
        widget.paste();
    }
    panels::RichText contents() const { return panels::readRtf(widget.TextRTF()); }
    QImage grab() { return probe.grab(QRect(widget.mapToGlobal(QPoint()), widget.size())); }

    QWidget window;
    forms::TextBoardWidget widget{&window};
    forms::TextPanel panel{&window};
    app::TextBoardParts parts{widget, panel};
    panels::TextBoard& board = parts.logic();
    X11Probe probe;
    bool shown = false;
};

} // namespace quillora::tests
