#pragma once

#include <QHash>
#include <QWidget>

#include <string>
#include <string_view>

namespace quillora::forms {

/// The toolbar `main_TB`: eighteen places in a fixed order, each addressed by its key. A place may be hidden
/// but is never disabled; a command that does not fit the state is ignored by its operation.
class MainToolbar : public QWidget {
    Q_OBJECT

  public:
    explicit MainToolbar(QWidget* parent);

    /// A key that the toolbar has not is ignored.
    void setButtonVisible(std::string_view key, bool visible);

    QWidget* lastButton() { return m_places.value("less"); }

  signals:
    void ButtonClick(const std::string& key);

  private:
    QHash<QString, QWidget*> m_places;
};

} // namespace quillora::forms
