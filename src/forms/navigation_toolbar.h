#pragma once

#include <QWidget>

#include <string>

namespace quillora::forms {

/// The toolbar `navigation_TB`, by which the presenter moves in the deck. Keys: "first", "pre", "next",
/// "last".
class NavigationToolbar : public QWidget {
    Q_OBJECT

  public:
    explicit NavigationToolbar(QWidget* parent);

  signals:
    void ButtonClick(const std::string& key);
};

} // namespace quillora::forms
