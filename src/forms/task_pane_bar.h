#pragma once

#include "session/task_pane_bars.h"

#include <QVariantAnimation>
#include <QWidget>

class QVBoxLayout;

namespace quillora::forms {

class BarHeader;
class Shutter;

/// One bar of the task pane: a header that opens and closes what stands below it, by a short movement.
class TaskPaneBar : public QWidget {
    Q_OBJECT

  public:
    /// @p iconName is a drawing in assets/icons.
    TaskPaneBar(const QString& key, const QString& caption, const QString& iconName, QWidget* parent);

    const QString& key() const { return m_key; }
    void setState(session::BarState state);
    session::BarState state() const { return m_state; }
    /// Takes @p widget and shows it.
    void addToBody(QWidget* widget);

  signals:
    /// Its whole body is on the screen.
    void opened();

  private:
    void startMovement();

    QString m_key;
    session::BarState m_state = session::BarState::expanded;
    BarHeader* m_header;
    QVBoxLayout* m_bodyColumn;
    Shutter* m_shutter;
    QVariantAnimation m_movement;
};

} // namespace quillora::forms
