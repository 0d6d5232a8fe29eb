#pragma once

#include <QObject>

#include <string>

class QWidget;

namespace quillora::forms {

/// The keys that a presenter, or a presenter's remote control, expects to move in the deck, and the one that
/// opens a deck. They reach the same commands as the buttons. A text field that has the focus keeps all of
/// them.
class PresenterKeys : public QObject {
    Q_OBJECT

  public:
    explicit PresenterKeys(QWidget* window);

  signals:
    /// With a key of `navigation_TB`.
    void navigate(const std::string& key);
    void open();
};

} // namespace quillora::forms
