#include "forms/video_panel_widget.h"

#include "forms/command_button.h"
#include "forms/look.h"

#include <QEvent>
#include <QLineEdit>
#include <QVBoxLayout>

namespace quillora::forms {

namespace {

/// The first video of its site, which the site itself keeps in honour.
constexpr const char* kSampleLink = "https://www.youtube.com/watch?v=jNQXAC9IVRw";
constexpr base::Twips kWidth{3735};
constexpr base::Twips kHeight{1095};
constexpr base::Twips kBoxHeight{440};
constexpr base::Twips kToolbarTop{480};
constexpr base::Twips kToolbarSide{600};

} // namespace

VideoPanelWidget::VideoPanelWidget(QWidget* parent) : QWidget(parent)
{
    setObjectName("yt_pic");
    setAccessibleName(tr("Online video controls"));
    setFixedHeight(pixels(kHeight));
    setMaximumWidth(pixels(kWidth));

    m_yturl_txt = new QLineEdit(this);
    m_yturl_txt->setMaxLength(panels::kLongestAddress);
    m_yturl_txt->setText(kSampleLink);
    m_yturl_txt->setCursorPosition(0);
    m_yturl_txt->setObjectName("yturl_txt");
    m_yturl_txt->setAccessibleName(tr("Video link"));
    m_yturl_txt->setFixedHeight(pixels(kBoxHeight));
    m_yturl_txt->installEventFilter(this);

    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, pixels(kHeight) - pixels(kToolbarTop) - pixels(kToolbarSide));
    column->setSpacing(pixels(kToolbarTop) - pixels(kBoxHeight));
    // Not wider than the panel, which would hide the end of the link and the caret there.
    column->addWidget(m_yturl_txt);
    column->addWidget(makeToolbar(), 0, Qt::AlignLeft);
    makeUnreachable();
}

QWidget* VideoPanelWidget::makeToolbar()
{
    auto* toolbar = new QWidget(this);
    toolbar->setObjectName("asxToolbar1");
    toolbar->setAccessibleName(tr("Video toolbar"));
    toolbar->setFixedSize(pixels(kToolbarSide), pixels(kToolbarSide));
    CommandButton* play =
        makeToolbarButton({"youtube", "youtube", "Play the video", "Play the video on the stage"}, toolbar);
    play->setGeometry(toolbar->rect());
    play->setIconSize({26, 26});
    connect(play, &QToolButton::clicked, this, [this] { emit asxToolbar1_ButtonClick("youtube"); });
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

QSize VideoPanelWidget::sizeHint() const { return {pixels(kWidth), pixels(kHeight)}; }

std::string VideoPanelWidget::yturl_txt() const { return m_yturl_txt->text().toStdString(); }

void VideoPanelWidget::setYturl_txt(const std::string& text)
{
    m_yturl_txt->setText(QString::fromStdString(text));
}

} // namespace quillora::forms
