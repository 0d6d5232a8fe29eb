#include "forms/mic_frm.h"

#include "audio/volume_scale.h"
#include "forms/look.h"

#include <QComboBox>
#include <QFont>
#include <QLabel>
#include <QPushButton>
#include <QSignalBlocker>
#include <QSlider>

#include <stdexcept>

namespace quillora::forms {

namespace {

using base::Twips;

constexpr Twips kFormWidth{4590};
constexpr Twips kFormHeight{2265};
constexpr int kLargeStep = 2000;
constexpr int kSmallStep = 1;

/// The points of the form's design at 96 dots per inch, which is what the layout of all windows is made for.
constexpr int kTextPixels = 11;

struct Place {
    Twips left;
    Twips top;
    Twips width;
    Twips height;
};
constexpr Place kLabel1{{120}, {240}, {765}, {240}};
constexpr Place kDev{{870}, {240}, {3615}, {315}};
constexpr Place kLabel2{{120}, {720}, {615}, {240}};
constexpr Place kRecLine{{885}, {720}, {3615}, {315}};
constexpr Place kLabel3{{120}, {1320}, {690}, {240}};
constexpr Place kVol{{765}, {1245}, {3090}, {345}};
constexpr Place kVolPer{{3900}, {1320}, {435}, {195}};
constexpr Place kCommand1{{3360}, {1800}, {1095}, {375}};

QFont formFont()
{
    QFont font;
    font.setFamilies(
        {QStringLiteral("Tahoma"), QStringLiteral("Liberation Sans"), QStringLiteral("DejaVu Sans")});
    font.setPixelSize(kTextPixels);
    return font;
}

/// Each control has its font of its own: below a window with a style sheet none is handed down.
void put(QWidget& widget, const Place& place)
{
    widget.setFont(formFont());
    widget.setGeometry(pixels(place.left), pixels(place.top), pixels(place.width), pixels(place.height));
}

} // namespace

mic_frm::mic_frm(QWidget* owner)
    : QDialog(owner, Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint | Qt::WindowCloseButtonHint)
{
    setObjectName("mic_frm");
    setWindowTitle(tr("Microphone Level"));
    setAccessibleName(windowTitle());
    setFixedSize(pixels(kFormWidth), pixels(kFormHeight));
    makeLists();
    makeVolume();
    makeCloseButton();
}

void mic_frm::makeLists()
{
    put(*makeLabel("Label1", tr("Device")), kLabel1);
    m_cboDev = new QComboBox(this);
    m_cboDev->setObjectName("cboDev");
    m_cboDev->setAccessibleName(tr("Device"));
    put(*m_cboDev, kDev);
    connect(m_cboDev, &QComboBox::activated, this, &mic_frm::cboDev_Click);

    put(*makeLabel("Label2", tr("Line")), kLabel2);
    m_cboRecLine = new QComboBox(this);
    m_cboRecLine->setObjectName("cboRecLine");
    m_cboRecLine->setAccessibleName(tr("Line"));
    put(*m_cboRecLine, kRecLine);
    connect(m_cboRecLine, &QComboBox::activated, this, &mic_frm::cboRecLine_Click);
}

void mic_frm::makeVolume()
{
    auto* Label3 = makeLabel("Label3", tr("Volume"));
    Label3->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    put(*Label3, kLabel3);
    m_sldVol = new QSlider(Qt::Horizontal, this);
    m_sldVol->setObjectName("sldVol");
    m_sldVol->setAccessibleName(tr("Volume"));
    m_sldVol->setRange(0, int(audio::kLoudest));
    // As the label says, until the mixer has told otherwise.
    m_sldVol->setValue(m_sldVol->maximum());
    m_sldVol->setPageStep(kLargeStep);
    m_sldVol->setSingleStep(kSmallStep);
    put(*m_sldVol, kVol);
    connect(m_sldVol, &QSlider::valueChanged, this, &mic_frm::sldVol_Scroll);
    connect(m_sldVol, &QSlider::sliderReleased, this, &mic_frm::sldVol_Click);

    m_lblVolPer = makeLabel("lblVolPer", QStringLiteral("100%"));
    m_lblVolPer->setAccessibleDescription(tr("Volume in percent"));
    m_lblVolPer->setAlignment(Qt::AlignCenter);
    put(*m_lblVolPer, kVolPer);
}

void mic_frm::makeCloseButton()
{
    auto* Command1 = new QPushButton(tr("Close"), this);
    Command1->setObjectName("Command1");
    Command1->setAccessibleName(Command1->text());
    Command1->setDefault(true);
    put(*Command1, kCommand1);
    connect(Command1, &QPushButton::clicked, this, &mic_frm::hide);
}

QLabel* mic_frm::makeLabel(const char* name, const QString& text)
{
    auto* label = new QLabel(text, this);
    label->setObjectName(name);
    label->setAccessibleName(text);
    // Its place begins where that of the list beside it does, and is less high.
    label->setAlignment(Qt::AlignLeft | Qt::AlignBottom);
    return label;
}

QComboBox& mic_frm::box(List list) const { return list == List::cboDev ? *m_cboDev : *m_cboRecLine; }

void mic_frm::clear(List list) { box(list).clear(); }

void mic_frm::addItem(List list, const std::string& text)
{
    // The toolkit chooses the first item of an empty list by itself.
    const int chosen = box(list).currentIndex();
    box(list).addItem(QString::fromStdString(text));
    box(list).setCurrentIndex(chosen);
}

int mic_frm::listIndex(List list) const { return box(list).currentIndex(); }

void mic_frm::setListIndex(List list, int index)
{
    if (index < -1 || index >= box(list).count())
        throw std::out_of_range("no such item in the list");
    box(list).setCurrentIndex(index);
    if (list == List::cboDev)
        emit cboDev_Click();
    else
        emit cboRecLine_Click();
}

void mic_frm::setDevices(Devices devices)
{
    const bool some = devices == Devices::some;
    m_cboDev->setPlaceholderText(some ? QString() : tr("No sound input found"));
    m_cboRecLine->setPlaceholderText(some ? QString() : tr("No line"));
    for (QWidget* control : {static_cast<QWidget*>(m_cboDev), static_cast<QWidget*>(m_cboRecLine),
                             static_cast<QWidget*>(m_sldVol)})
        control->setEnabled(some);
}

int mic_frm::sldVol() const { return m_sldVol->value(); }

void mic_frm::setSldVol(int value)
{
    const QSignalBlocker quiet(m_sldVol);
    m_sldVol->setValue(value);
}

std::string mic_frm::lblVolPer() const { return m_lblVolPer->text().toStdString(); }

void mic_frm::setLblVolPer(const std::string& text)
{
    m_lblVolPer->setText(QString::fromStdString(text));
    m_lblVolPer->setAccessibleName(m_lblVolPer->text());
}

} // namespace quillora::forms
