#include "forms/video_panel_widget.h"

#include "forms/command_button.h"
#include "forms/look.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QLineEdit>

namespace quillora::forms {

namespace {

/// The first video of its site, which the site itself keeps in honour.
constexpr const char* kSampleLink = "https://www.youtube.com/watch?v=jNQXAC9IVRw";
constexpr QSize kPanelSize{249, 81};

} // namespace

VideoPanelWidget::VideoPanelWidget(QWidget* parent) : QWidget(parent)
{
    setObjectName("yt_pic");
    setAccessibleName(tr("Online video controls"));
    setFixedHeight(kPanelSize.height());
    setMaximumWidth(kPanelSize.width());

    m_yturl_txt = new QLineEdit(this);
    m_yturl_txt->setMaxLength(panels::kLongestAddress);
    m_yturl_txt->setText(kSampleLink);
    m_yturl_txt->setCursorPosition(0);
    m_yturl_txt->setObjectName("yturl_txt");
    m_yturl_txt->setAccessibleName(tr("Video link"));
    m_yturl_txt->setFixedHeight(pixels({440}));
    m_yturl_txt->installEventFilter(this);

    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(5, 2, 5, 6);
    column->setSpacing(4);
    column->addWidget(m_yturl_txt);
    column->addWidget(makeToolbar());
    makeUnreachable();
}

QWidget* VideoPanelWidget::makeToolbar()
{
    auto* toolbar = new QWidget(this);
    toolbar->setObjectName("asxToolbar1");
    toolbar->setAccessibleName(tr("Video toolbar"));
    auto* row = new QHBoxLayout(toolbar);
    row->setContentsMargins(0, 0, 0, 0);
    auto* play =
        new CommandButton(CommandButton::Face::iconOnly, "youtube", {}, tr("Play the video"), toolbar);
    play->setObjectName("asxToolbar1_youtube");
    play->setToolTip(tr("Play the video on the stage"));
    play->setFixedSize(pixels({600}), pixels({600}));
    play->setIconSize({26, 26});
    connect(play, &QToolButton::clicked, this, [this] { emit asxToolbar1_ButtonClick("youtube"); });
    row->addWidget(play);
    row->addStretch();
    return toolbar;
}

/// Below what the panel shows; it does what the toolbar's button does.
void VideoPanelWidget::makeUnreachable()
{
    auto* command3 = new CommandButton(CommandButton::Face::iconOnly, "youtube", {}, tr("Play"), this);
    command3->setObjectName("Command3");
    command3->setFocusPolicy(Qt::NoFocus);
    command3->setGeometry(pixels({1560}), pixels({1440}), pixels({540}), pixels({375}));
    connect(command3, &QToolButton::clicked, this, &VideoPanelWidget::Command3_Click);
}

bool VideoPanelWidget::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == m_yturl_txt && event->type() == QEvent::FocusIn)
        emit yturl_txt_GotFocus();
    if (watched == m_yturl_txt && event->type() == QEvent::FocusOut)
        emit yturl_txt_LostFocus();
    return QWidget::eventFilter(watched, event);
}

std::string VideoPanelWidget::yturl_txt() const { return m_yturl_txt->text().toStdString(); }

void VideoPanelWidget::setYturl_txt(const std::string& text)
{
    m_yturl_txt->setText(QString::fromStdString(text));
}

} // namespace quillora::forms
