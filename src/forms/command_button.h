#pragma once

#include <QToolButton>

namespace quillora::forms {

/// A flat button of a toolbar. It takes the keyboard's focus from Tab only, so that after a click with the
/// mouse the presenter's keys still go to the stage; and while it has the focus, Space presses it rather than
/// turning to the next slide.
class CommandButton : public QToolButton {
    Q_OBJECT

  public:
    enum class Face { iconAndCaption, iconOnly };

    /// @p spokenName is what a person would call the button; it is read by screen readers.
    CommandButton(Face face, const QString& iconName, const QString& caption, const QString& spokenName,
                  QWidget* parent);

    QSize sizeHint() const override;

  protected:
    bool event(QEvent* event) override;
};

/// A row of the table of a toolbar.
struct ToolbarButton {
    const char* key;
    const char* iconName;
    const char* spokenName;
    const char* toolTip;
};

/// A button with a picture alone, named after @p toolbar and its own key.
CommandButton* makeToolbarButton(const ToolbarButton& button, QWidget* toolbar);

} // namespace quillora::forms
