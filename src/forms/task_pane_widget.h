#pragma once

#include "deck/task_pane_view.h"

#include <QHash>
#include <QScrollArea>
#include <QVector>

#include <string>

class QVBoxLayout;

namespace quillora::forms {

class TaskPaneBar;

/// The task pane `ebDemo` at the left of the stage: bars that hold panels and links. It scrolls when its open
/// bars need more room than it has. Panels that no bar holds at the moment live on unseen.
class TaskPaneWidget : public QScrollArea, public deck::TaskPaneView {
    Q_OBJECT

  public:
    explicit TaskPaneWidget(QWidget* parent);

    /// A panel that bars can hold, under its objectName; the pane takes it.
    void keep(QWidget* panel);

    /// Tab goes from @p before to what stands in the pane.
    void comeAfter(QWidget* before) { m_before = before; }

    void clear() override;
    void addBar(std::string_view bar, std::string_view caption) override;
    void setBarState(std::string_view bar, session::BarState state) override;
    void addLink(std::string_view bar, std::string_view item, std::string_view caption) override;
    void addControl(std::string_view bar, std::string_view item, std::string_view control) override;
    void refresh() override;

  signals:
    /// A link, with its item's key.
    void ItemClick(const std::string& key);

  private:
    void orderTabs();
    TaskPaneBar& barAt(std::string_view key) const;

    QWidget* m_before = nullptr;
    QWidget* m_cupboard;
    QVBoxLayout* m_column;
    QHash<QString, QWidget*> m_panels;
    /// In their order from the top.
    QVector<TaskPaneBar*> m_bars;
};

} // namespace quillora::forms
