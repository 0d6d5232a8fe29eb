#include "forms/presenter_keys.h"

#include <QApplication>
#include <QShortcut>
#include <QWidget>

namespace quillora::forms {

namespace {

struct KeyOfMove {
    Qt::Key key;
    const char* move;
};

constexpr KeyOfMove kKeys[] = {
    {Qt::Key_PageDown, "next"}, {Qt::Key_Right, "next"},    {Qt::Key_Space, "next"}, {Qt::Key_PageUp, "pre"},
    {Qt::Key_Left, "pre"},      {Qt::Key_Backspace, "pre"}, {Qt::Key_Home, "first"}, {Qt::Key_End, "last"},
};

/// Text fields take what is typed into them before any shortcut, but not the keys that mean nothing to them.
bool typingGoesOn()
{
    const QWidget* focus = QApplication::focusWidget();
    return focus != nullptr && focus->testAttribute(Qt::WA_InputMethodEnabled);
}

} // namespace

PresenterKeys::PresenterKeys(QWidget* window) : QObject(window)
{
    for (const KeyOfMove& each : kKeys) {
        auto* shortcut = new QShortcut(QKeySequence(each.key), window);
        const std::string move = each.move;
        connect(shortcut, &QShortcut::activated, this, [this, move] {
            if (!typingGoesOn())
                emit navigate(move);
        });
    }
    auto* openShortcut = new QShortcut(QKeySequence(Qt::CTRL | Qt::Key_O), window);
    connect(openShortcut, &QShortcut::activated, this, &PresenterKeys::open);
}

} // namespace quillora::forms
