#include "forms/task_pane_widget.h"

#include "forms/command_button.h"
#include "forms/task_pane_bar.h"

#include <QFile>
#include <QScrollBar>
#include <QVBoxLayout>

#include <stdexcept>

namespace quillora::forms {

namespace {

struct IconOfKey {
    const char* key;
    const char* icon;
};

constexpr IconOfKey kIcons[] = {
    {"camera", "camera"}, {"powerpoint", "slides"}, {"text", "text"},
    {"Draw", "draw"},     {"web", "web"},           {"youtube", "youtube"},
    {"help", "about"},    {"about", "about"},       {"onlinesupport", "help"},
};

QString iconOf(const QString& key)
{
    for (const IconOfKey& each : kIcons)
        if (key == QLatin1String(each.key))
            return each.icon;
    return QStringLiteral("more");
}

} // namespace

TaskPaneWidget::TaskPaneWidget(QWidget* parent) : QScrollArea(parent)
{
    setObjectName("ebDemo");
    setAccessibleName(tr("Task pane"));
    setFrameShape(QFrame::NoFrame);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setWidgetResizable(true);
    // Tab goes to what stands in it.
    setFocusPolicy(Qt::NoFocus);
    viewport()->setAccessibleName(accessibleName());
    QFile thin(QStringLiteral(":/quillora/thin_scroll_bar.qss"));
    if (thin.open(QIODevice::ReadOnly))
        verticalScrollBar()->setStyleSheet(QString::fromUtf8(thin.readAll()));
    verticalScrollBar()->setAccessibleName(tr("Scroll the task pane"));
    // A screen reader comes past the toolkit's own box around the scroll bar as well.
    verticalScrollBar()->parentWidget()->setAccessibleName(verticalScrollBar()->accessibleName());

    m_cupboard = new QWidget(this);
    m_cupboard->hide();

    auto* content = new QWidget;
    content->setObjectName("ebDemo_content");
    content->setAccessibleName(accessibleName());
    m_column = new QVBoxLayout(content);
    m_column->setContentsMargins(8, 0, 4, 8);
    m_column->setSpacing(6);
    m_column->addStretch();
    setWidget(content);
}

void TaskPaneWidget::keep(QWidget* panel)
{
    panel->setParent(m_cupboard);
    m_panels.insert(panel->objectName(), panel);
}

void TaskPaneWidget::clear()
{
    for (QWidget* panel : m_panels)
        panel->setParent(m_cupboard);
    qDeleteAll(m_bars);
    m_bars.clear();
}

void TaskPaneWidget::addBar(std::string_view bar, std::string_view caption)
{
    const QString key = QString::fromUtf8(bar);
    auto* added = new TaskPaneBar(key, tr(std::string(caption).c_str()), iconOf(key), widget());
    m_column->insertWidget(m_column->count() - 1, added);
    m_bars.append(added);
    // What a command has just asked for should be seen.
    connect(added, &TaskPaneBar::opened, this, [this, added] { ensureWidgetVisible(added, 0, 0); });
}

TaskPaneBar& TaskPaneWidget::barAt(std::string_view key) const
{
    for (TaskPaneBar* bar : m_bars)
        if (bar->key() == QString::fromUtf8(key))
            return *bar;
    throw std::out_of_range("the task pane shows no bar " + std::string(key));
}

void TaskPaneWidget::setBarState(std::string_view bar, session::BarState state)
{
    barAt(bar).setState(state);
}

void TaskPaneWidget::addLink(std::string_view bar, std::string_view item, std::string_view caption)
{
    const std::string key(item);
    const QString text = tr(std::string(caption).c_str());
    auto* link = new CommandButton(CommandButton::Face::iconAndCaption, iconOf(QString::fromUtf8(item)), text,
                                   text, this);
    link->setObjectName("ebDemo_" + QString::fromUtf8(item));
    connect(link, &QToolButton::clicked, this, [this, key] { emit ItemClick(key); });
    barAt(bar).addToBody(link);
}

void TaskPaneWidget::addControl(std::string_view bar, std::string_view, std::string_view control)
{
    QWidget* panel = m_panels.value(QString::fromUtf8(control));
    if (panel == nullptr)
        throw std::out_of_range("the task pane keeps no control " + std::string(control));
    barAt(bar).addToBody(panel);
}

void TaskPaneWidget::refresh()
{
    widget()->updateGeometry();
    orderTabs();
}

/// Left alone, Tab would go in the order in which the widgets were made: panels first, bars last.
void TaskPaneWidget::orderTabs()
{
    QWidget* last = m_before;
    for (TaskPaneBar* bar : m_bars)
        for (QWidget* each : bar->findChildren<QWidget*>())
            // A list that drops down is a window of its own, with an order of its own.
            if ((each->focusPolicy() & Qt::TabFocus) != 0 && each->window() == window()) {
                setTabOrder(last, each);
                last = each;
            }
}

} // namespace quillora::forms
