#include "forms/browser_notice.h"

#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace quillora::forms {

namespace {

constexpr int kTextWidth = 460;

QLabel* makeLine(const char* kind, QWidget* parent)
{
    auto* label = new QLabel(parent);
    label->setProperty("kind", kind);
    label->setAlignment(Qt::AlignHCenter);
    label->setWordWrap(true);
    label->setTextFormat(Qt::PlainText);
    label->setFixedWidth(kTextWidth);
    return label;
}

} // namespace

BrowserNotice::BrowserNotice(QWidget* parent) : QWidget(parent)
{
    setObjectName("browser_notice");
    setAccessibleName(tr("Browser notice"));
    setAutoFillBackground(true);
    setBackgroundRole(QPalette::Base);

    auto* column = new QVBoxLayout(this);
    column->addStretch();
    m_heading = makeLine("heading", this);
    m_text = makeLine("caption", this);
    m_reload = new QPushButton(tr("Reload"), this);
    m_reload->setObjectName("browser_reload");
    m_reload->setAccessibleName(tr("Reload the page"));
    column->addWidget(m_heading, 0, Qt::AlignHCenter);
    column->addSpacing(6);
    column->addWidget(m_text, 0, Qt::AlignHCenter);
    column->addSpacing(10);
    column->addWidget(m_reload, 0, Qt::AlignHCenter);
    column->addStretch();
    connect(m_reload, &QPushButton::clicked, this, &BrowserNotice::reloadClicked);
    tell(tr("No page"), {}, Offer::nothing);
    hide();
}

void BrowserNotice::tell(const QString& heading, const QString& text, Offer offer)
{
    m_heading->setText(heading);
    m_heading->setAccessibleName(heading);
    m_text->setText(text);
    m_text->setAccessibleName(text.isEmpty() ? heading : text);
    m_reload->setVisible(offer == Offer::reload);
    show();
    raise();
}

} // namespace quillora::forms
