#include "forms/web_panel_widget.h"

#include "forms/command_button.h"
#include "forms/look.h"
#include "forms/separator.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QRadioButton>

namespace quillora::forms {

namespace {

/// Of a lasting public site.
constexpr const char* kSampleAddress = "https://www.wikipedia.org/";
constexpr int kEnter = 13;
constexpr base::Twips kWidth{3735};
constexpr base::Twips kHeight{975};
constexpr base::Twips kBoxWidth{3700};
constexpr base::Twips kBoxHeight{405};
constexpr base::Twips kToolbarTop{480};
constexpr base::Twips kToolbarHeight{495};
/// Between the read-out and the edge of the pane.
constexpr int kReadOutMargin = 4;

/// Those without a key are separators.
constexpr ToolbarButton kButtons[] = {
    {"go", "go", "Go to the address", "Go"},
    {"", "", "", ""},
    {"back", "back", "Page back", "Back"},
    {"stop", "stoploading", "Stop loading", "Stop"},
    {"forward", "forward", "Page forward", "Forward"},
    {"", "", "", ""},
    {"zoomin", "zoomin", "Zoom in", "Zoom in"},
    {"zoomout", "zoomout", "Zoom out", "Zoom out"},
};

} // namespace

WebPanelWidget::WebPanelWidget(QWidget* parent) : QWidget(parent)
{
    setObjectName("PicWeb");
    setAccessibleName(tr("Web page controls"));
    setFixedHeight(pixels(kHeight));
    setMaximumWidth(pixels(kWidth));

    m_http_txt = new QLineEdit(this);
    m_http_txt->setMaxLength(panels::kLongestAddress);
    m_http_txt->setText(kSampleAddress);
    m_http_txt->setCursorPosition(0);
    m_http_txt->setObjectName("http_txt");
    m_http_txt->setAccessibleName(tr("Web address"));
    m_http_txt->setFixedHeight(pixels(kBoxHeight));
    connect(m_http_txt, &QLineEdit::returnPressed, this, [this] { emit http_txt_KeyPress(kEnter); });

    m_Label24 = new QLabel("100%", this);
    m_Label24->setObjectName("Label24");
    m_Label24->setAccessibleName(tr("Zoom"));
    m_Label24->setProperty("kind", "caption");
    m_Label24->setAlignment(Qt::AlignRight | Qt::AlignVCenter);

    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(pixels(kToolbarTop) - pixels(kBoxHeight));
    auto* box = new QHBoxLayout;
    box->setContentsMargins(0, 0, pixels(kWidth) - pixels(kBoxWidth), 0);
    box->addWidget(m_http_txt);
    column->addLayout(box);
    column->addWidget(makeToolbar());
    makeUnreachable();
}

QWidget* WebPanelWidget::makeToolbar()
{
    auto* toolbar = new QWidget(this);
    toolbar->setObjectName("web_TB");
    toolbar->setAccessibleName(tr("Web toolbar"));
    toolbar->setFixedHeight(pixels(kToolbarHeight));
    auto* row = new QHBoxLayout(toolbar);
    row->setContentsMargins(0, 0, kReadOutMargin, 0);
    row->setSpacing(0);
    for (const ToolbarButton& each : kButtons) {
        if (*each.key == '\0') {
            row->addWidget(makeSeparator(20, toolbar));
            continue;
        }
        CommandButton* button = makeToolbarButton(each, toolbar);
        connect(button, &QToolButton::clicked, this,
                [this, key = std::string(each.key)] { emit web_TB_ButtonClick(key); });
        row->addWidget(button);
    }
    row->addStretch();
    // Not below the toolbar, where the panel would hide it: who zooms wants to know how far.
    row->addWidget(m_Label24);
    return toolbar;
}

/// Below what the panel shows; nothing reads them.
void WebPanelWidget::makeUnreachable()
{
    auto* online = new QRadioButton(tr("Online"), this);
    online->setObjectName("online_opt");
    online->setChecked(true);
    auto* offline = new QRadioButton(tr("Offline"), this);
    offline->setObjectName("offline_opt");
    int left = 0;
    for (QRadioButton* option : {online, offline}) {
        option->setAccessibleName(option->text());
        option->setFocusPolicy(Qt::NoFocus);
        option->setGeometry(left, pixels({2040}), pixels({975}), pixels({255}));
        left = pixels({960});
    }
}

QSize WebPanelWidget::sizeHint() const { return {pixels(kWidth), pixels(kHeight)}; }

std::string WebPanelWidget::http_txt() const { return m_http_txt->text().toStdString(); }

std::string WebPanelWidget::Label24() const { return m_Label24->text().toStdString(); }

void WebPanelWidget::setLabel24(const std::string& text) { m_Label24->setText(QString::fromStdString(text)); }

} // namespace quillora::forms
