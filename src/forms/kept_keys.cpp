#include "forms/kept_keys.h"

#include <QKeyEvent>
#include <QWidget>

#include <algorithm>
#include <vector>

namespace quillora::forms {

namespace {

class KeyKeeper : public QObject {
  public:
    KeyKeeper(QWidget& control, std::initializer_list<Qt::Key> keys) : QObject(&control), m_keys(keys)
    {
        control.installEventFilter(this);
    }

  protected:
    bool eventFilter(QObject*, QEvent* event) override
    {
        if (event->type() != QEvent::ShortcutOverride)
            return false;
        const auto* press = static_cast<const QKeyEvent*>(event);
        if (press->modifiers() != Qt::NoModifier || std::ranges::count(m_keys, Qt::Key(press->key())) == 0)
            return false;
        event->accept();
        return true;
    }

  private:
    std::vector<Qt::Key> m_keys;
};

} // namespace

void keepKeys(QWidget& control, std::initializer_list<Qt::Key> keys)
{
    control.setFocusPolicy(Qt::TabFocus);
    new KeyKeeper(control, keys);
}

} // namespace quillora::forms
