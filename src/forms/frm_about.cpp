#include "forms/frm_about.h"

#include "base/twip_rectangle.h"
#include "forms/look.h"

#include <QCloseEvent>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>

namespace quillora::forms {

namespace {

constexpr QSize kDialogSize{489, 292};
constexpr int kTextPixels = 13;

/// Where the family is absent, another one with letters of the same width stands in for it.
QFont textFont(const char* family)
{
    QFont font;
    font.setFamilies({QString::fromLatin1(family), QStringLiteral("Liberation Sans")});
    font.setPixelSize(kTextPixels);
    return font;
}

/// A control of the form, at its place in twips.
template <typename Control>
Control* placed(Control* control, const char* name, const QString& spokenName, int left, int top, int width,
                int height)
{
    control->setObjectName(name);
    control->setAccessibleName(spokenName);
    control->setGeometry(pixels({left}), pixels({top}), pixels({width}), pixels({height}));
    return control;
}

} // namespace

frmAbout::frmAbout(QWidget* owner, const std::string& version) : QDialog(owner)
{
    setObjectName("frmAbout");
    setWindowTitle(QStringLiteral("About Quillora Recorder "));
    setAccessibleName(tr("About"));
    setModal(true);
    setFixedSize(kDialogSize);
    setWindowFlag(Qt::WindowMinMaxButtonsHint, false);
    QFont small = font();
    small.setPixelSize(kTextPixels);
    setFont(small);
    QPalette white = palette();
    white.setColor(QPalette::Window, colours::kSurface);
    setPalette(white);
    makeLogo();
    makeText();
    makeFoot(version);
    placed(new QWidget(this), "TransImg1", tr("Picture"), 10560, 4680, 645, 570);
}

void frmAbout::makeLogo()
{
    auto* logo = placed(new QWidget(this), "Picture1", tr("Quillora Recorder"), 120, 120, 3750, 645);
    const int height = logo->height();
    auto* drawing = new QLabel(logo);
    drawing->setAccessibleName(tr("Logo"));
    drawing->setPixmap(
        QIcon(QStringLiteral(":/quillora/quillora.svg")).pixmap(QSize(height, height), devicePixelRatioF()));
    drawing->setGeometry(0, 0, height, height);
    auto* name = new QLabel(tr("Quillora Recorder"), logo);
    name->setAccessibleName(name->text());
    QFont bold = name->font();
    bold.setPixelSize(21);
    bold.setBold(true);
    name->setFont(bold);
    name->setGeometry(height + 10, 0, logo->width() - height - 10, height);
}

void frmAbout::makeText()
{
    auto* text =
        placed(new QPlainTextEdit(this), "Text1", tr("What the program is for"), 120, 840, 7095, 2775);
    text->setPlainText(
        tr("Quillora Recorder makes video lectures. Open a slide deck, arrange slides, a camera picture, a "
           "drawing board, a text board, a web page or an online video on one stage, and press Record.\n\n"
           "What stands on the stage is recorded together with your voice, and every move to another slide "
           "is noted with its time. At Stop, the video, the slides and their times go into one file, ready "
           "to be watched again and to be uploaded."));
    text->setFont(textFont("MS Sans Serif"));
    text->setReadOnly(true);
    text->setFrameShape(QFrame::NoFrame);
    text->setTabChangesFocus(true);
    QPalette grey = text->palette();
    grey.setColor(QPalette::Text, colours::kMutedText);
    grey.setColor(QPalette::Base, colours::kSurface);
    text->setPalette(grey);
}

void frmAbout::makeFoot(const std::string& version)
{
    auto* maker = placed(new QPushButton(tr("The makers of Quillora"), this), "Label1",
                         tr("The maker's page"), 600, 3885, 3225, 240);
    maker->setFont(textFont("Arial"));
    maker->setFlat(true);
    maker->setCursor(Qt::PointingHandCursor);
    maker->setAutoDefault(false);
    QPalette link = maker->palette();
    link.setColor(QPalette::ButtonText, colours::kAccent);
    maker->setPalette(link);
    connect(maker, &QPushButton::clicked, this, &frmAbout::Label1_Click);

    const QString versionText = QString::fromStdString(version);
    auto* label = placed(new QLabel(versionText, this), "version_lb", versionText, 3915, 3885, 1275, 240);
    label->setFont(textFont("Arial"));
    label->setAlignment(Qt::AlignCenter);

    auto* ok = placed(new QPushButton(tr("OK"), this), "cmdOK", tr("OK"), 5880, 3840, 1260, 345);
    ok->setDefault(true);
    ok->setFocus();
    connect(ok, &QPushButton::clicked, this, &QWidget::hide);
}

void frmAbout::showModal() { exec(); }

void frmAbout::closeEvent(QCloseEvent* event)
{
    hide();
    event->accept();
    emit Form_Unload();
}

} // namespace quillora::forms
