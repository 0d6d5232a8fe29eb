#include "forms/status_bar.h"

#include "forms/separator.h"

#include <QHBoxLayout>
#include <QLabel>

namespace quillora::forms {

namespace {

struct Panel {
    /// What the panel is about; a screen reader says it after the text.
    const char* subject;
    const char* storedText;
    int width;
};

constexpr Panel kPanelTable[StatusBar::kPanels] = {
    {"Session", "Ready ...", 256},
    {"Slide", "", 170},
    {"Message", "", 0},
    {"Running time", "", 120},
    {"Window mode", "myWindowMode", 96},
    {"Media", "myMediaType", 96},
};

bool isPanel(int panel) { return panel >= 1 && panel <= StatusBar::kPanels; }

/// A screen reader reads the name; for a panel that is what stands in it.
void showText(QLabel& label, const QString& text)
{
    label.setText(text);
    label.setAccessibleName(text.isEmpty() ? label.accessibleDescription() : text);
}

} // namespace

StatusBar::StatusBar(QWidget* parent) : QWidget(parent)
{
    setObjectName("StatusBar1");
    setAccessibleName(tr("Status bar"));
    setAttribute(Qt::WA_StyledBackground);

    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(0, 1, 0, 0);
    row->setSpacing(0);
    for (int i = 0; i < kPanels; ++i) {
        if (i > 0)
            row->addWidget(makeSeparator(16, this));
        auto* label = new QLabel(this);
        label->setObjectName(QStringLiteral("StatusBar1_%1").arg(i + 1));
        label->setTextFormat(Qt::PlainText);
        label->setAccessibleDescription(tr(kPanelTable[i].subject));
        label->setToolTip(tr(kPanelTable[i].subject));
        showText(*label, QString::fromUtf8(kPanelTable[i].storedText));
        if (kPanelTable[i].width > 0) {
            label->setFixedWidth(kPanelTable[i].width);
            row->addWidget(label);
        } else {
            // A long text must not push the other panels out of the window.
            label->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
            row->addWidget(label, 1);
        }
        m_panels[std::size_t(i)] = label;
    }
}

void StatusBar::setPanel(int panel, const std::string& text)
{
    if (!isPanel(panel))
        return;
    QLabel& label = *m_panels[std::size_t(panel - 1)];
    const QString shown = QString::fromStdString(text);
    if (label.text() == shown)
        return;
    showText(label, shown);
    label.repaint();
}

std::string StatusBar::panel(int panel) const
{
    return isPanel(panel) ? m_panels[std::size_t(panel - 1)]->text().toStdString() : std::string();
}

} // namespace quillora::forms
