#include "forms/capture_options_frm.h"

#include "forms/up_down_buttons.h"
#include "session/option_captions.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFont>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QSignalBlocker>
#include <QSlider>
#include <QToolButton>
#include <QVBoxLayout>

#include <type_traits>

namespace quillora::forms {

namespace {

constexpr int kFormWidth = 400;
constexpr int kNumberWidth = 64;
// The points of the form's design at 96 dots per inch, which is what the layout of all windows is made for.
constexpr int kFramePixels = 13;
constexpr int kLabelPixels = 12;
constexpr int kButtonPixels = 11;

/// Chosen so that Arabic captions can stand in the same controls. Where it is absent, the families behind it
/// bring the letters of both.
QFont captionFont(int pixels)
{
    QFont font;
    font.setFamilies({QStringLiteral("Traditional Arabic"), QStringLiteral("Liberation Sans"),
                      QStringLiteral("DejaVu Sans")});
    font.setPixelSize(pixels);
    return font;
}

QFont digitFont()
{
    QFont font;
    font.setFamilies({QStringLiteral("Arial"), QStringLiteral("Liberation Sans")});
    font.setPixelSize(kLabelPixels);
    return font;
}

/// Names a control, and puts a label beside it.
void labelled(QWidget* control, const char* name, const QString& text)
{
    control->setObjectName(name);
    (new QLabel(text, control->parentWidget()))->setBuddy(control);
}

void put(QLineEdit& box, const std::string& value)
{
    const QSignalBlocker quiet(box);
    if (const QString shown = QString::fromStdString(value); box.text() != shown)
        box.setText(shown);
}

} // namespace

template <typename Control>
Control* CaptureOptions_frm::captioned(Control* control, const char* name)
{
    control->setObjectName(name);
    m_captioned.push_back({name, [control](const QString& caption) {
                               if constexpr (std::is_same_v<Control, QGroupBox>)
                                   control->setTitle(caption);
                               else
                                   control->setText(caption);
                               control->setAccessibleName(caption.trimmed());
                           }});
    control->setFont(captionFont(std::is_same_v<Control, QGroupBox>     ? kFramePixels
                                 : std::is_same_v<Control, QPushButton> ? kButtonPixels
                                                                        : kLabelPixels));
    return control;
}

CaptureOptions_frm::CaptureOptions_frm(QWidget* owner) : QDialog(owner)
{
    setObjectName("CaptureOptions_frm");
    auto* column = new QVBoxLayout(this);
    column->setSizeConstraint(QLayout::SetFixedSize);
    column->setContentsMargins(12, 12, 12, 12);
    column->setSpacing(12);
    column->addWidget(makeVideoOptions());
    column->addWidget(makeButtons());
    makeUnreachable();
    showControls({});
}

QWidget* CaptureOptions_frm::makeVideoOptions()
{
    auto* frame = captioned(new QGroupBox(this), "Frame1");
    frame->setMinimumWidth(kFormWidth - 24);
    auto* grid = new QGridLayout(frame);
    grid->setContentsMargins(12, 10, 12, 12);
    grid->setHorizontalSpacing(6);
    grid->setVerticalSpacing(8);
    grid->setColumnStretch(0, 1);

    addNumber(*grid, 0, "Label2", m_txtfps, tr("Frame rate"));
    connect(m_txtfps, &QLineEdit::textChanged, this,
            [this](const QString& value) { emit txtfps_Change(value.toStdString()); });
    m_txtfps->setObjectName("txtfps");
    auto* UpDown1 = new UpDownButtons(*m_txtfps, tr("frame rate"), frame);
    UpDown1->setObjectName("UpDown1");
    connect(UpDown1, &UpDownButtons::UpClick, this, &CaptureOptions_frm::UpDown1_UpClick);
    connect(UpDown1, &UpDownButtons::DownClick, this, &CaptureOptions_frm::UpDown1_DownClick);
    grid->addWidget(UpDown1, 0, 2);
    grid->addWidget(makeHelp("Picture6", tr("About the frame rate"), &CaptureOptions_frm::Picture6_Click), 0,
                    3);

    addNumber(*grid, 1, "Label1", m_bitrate_txt, tr("Bitrate"));
    connect(m_bitrate_txt, &QLineEdit::textChanged, this,
            [this](const QString& value) { emit bitrate_txt_Change(value.toStdString()); });
    m_bitrate_txt->setObjectName("bitrate_txt");
    auto* UpDown2 = new UpDownButtons(*m_bitrate_txt, tr("bitrate"), frame);
    UpDown2->setObjectName("UpDown2");
    connect(UpDown2, &UpDownButtons::UpClick, this, &CaptureOptions_frm::UpDown2_UpClick);
    connect(UpDown2, &UpDownButtons::DownClick, this, &CaptureOptions_frm::UpDown2_DownClick);
    grid->addWidget(UpDown2, 1, 2);
    grid->addWidget(makeHelp("Picture1", tr("About the bitrate"), &CaptureOptions_frm::Picture1_Click), 1, 3);

    m_capturecursor_chk = captioned(new QCheckBox(frame), "capturecursor_chk");
    connect(m_capturecursor_chk, &QCheckBox::toggled, this, &CaptureOptions_frm::capturecursor_chk_Click);
    grid->addWidget(m_capturecursor_chk, 2, 0, 1, 3);
    grid->addWidget(makeHelp("Picture4", tr("About the mouse cursor"), &CaptureOptions_frm::Picture4_Click),
                    2, 3);

    m_highlightCursor_chk = captioned(new QCheckBox(frame), "highlightCursor_chk");
    connect(m_highlightCursor_chk, &QCheckBox::toggled, this, &CaptureOptions_frm::highlightCursor_chk_Click);
    grid->addWidget(m_highlightCursor_chk, 3, 0, 1, 3);
    return frame;
}

void CaptureOptions_frm::addNumber(QGridLayout& grid, int row, const char* label, QLineEdit*& box,
                                   const QString& spokenName)
{
    auto* frame = grid.parentWidget();
    box = new QLineEdit(frame);
    box->setFont(digitFont());
    box->setFixedWidth(kNumberWidth);
    box->setAlignment(Qt::AlignRight);
    box->setAccessibleName(spokenName);
    auto* caption = captioned(new QLabel(frame), label);
    caption->setBuddy(box);
    grid.addWidget(caption, row, 0);
    grid.addWidget(box, row, 1);
}

QWidget* CaptureOptions_frm::makeHelp(const char* name, const QString& spokenName,
                                      void (CaptureOptions_frm::*clicked)())
{
    auto* help = new QToolButton(this);
    help->setObjectName(name);
    help->setAccessibleName(spokenName);
    help->setToolTip(spokenName);
    help->setText(QStringLiteral("?"));
    help->setFocusPolicy(Qt::StrongFocus);
    help->setFixedSize(22, 22);
    help->setStyleSheet("QToolButton { color: #1f62c4; font-weight: bold; background: #ffffff;"
                        " border: 1px solid #d3d9e1; border-radius: 11px; }"
                        "QToolButton:hover { background: #eaf0f9; }"
                        "QToolButton:focus { border-color: #1f62c4; }");
    connect(help, &QToolButton::clicked, this, clicked);
    return help;
}

QWidget* CaptureOptions_frm::makeButtons()
{
    auto* row = new QWidget(this);
    auto* inside = new QHBoxLayout(row);
    inside->setContentsMargins(0, 0, 0, 0);
    inside->addStretch();
    auto* ok = captioned(new QPushButton(row), "Command1");
    ok->setDefault(true);
    connect(ok, &QPushButton::clicked, this, &CaptureOptions_frm::Command1_Click);
    auto* cancel = captioned(new QPushButton(row), "Command2");
    cancel->setAutoDefault(false);
    connect(cancel, &QPushButton::clicked, this, &CaptureOptions_frm::Command2_Click);
    for (auto* button : {ok, cancel}) {
        button->setMinimumWidth(84);
        inside->addWidget(button);
    }
    return row;
}

/// A parent that is never shown keeps its children off the screen, out of the order of the Tab key, and
/// unspoken.
void CaptureOptions_frm::makeUnreachable()
{
    auto* outside = new QWidget(this);
    outside->hide();
    auto* Picture2 = makeHelp("Picture2", tr("About the codec"), &CaptureOptions_frm::Picture2_Click);
    Picture2->setParent(outside);
    captioned(new QLabel(outside), "Label6(0)");
    m_VideoCodecs_cmb = new QComboBox(outside);
    m_VideoCodecs_cmb->setObjectName("VideoCodecs_cmb");
    m_VideoCodecs_cmb->setEditable(true);
    for (const auto& [name, label] :
         {std::pair{"cmbAudioDevicesX", tr("Audio Device")}, std::pair{"cmbAudioLinesX", tr("Audio Line")}})
        labelled(new QComboBox(outside), name, label);

    auto* Frame2 = captioned(new QGroupBox(outside), "Frame2");
    captioned(new QLabel(Frame2), "Label11");
    for (const char* name : {"anim_chk", "narration_chk", "timing_chk"})
        captioned(new QCheckBox(Frame2), name);
    const struct {
        const char* name;
        const char* caption;
        session::ShowSize size;
    } sizes[] = {{"s_opt", "320x240", session::ShowSize::s_opt},
                 {"n_opt", "640x480", session::ShowSize::n_opt},
                 {"l_opt", "1024x768", session::ShowSize::l_opt}};
    for (const auto& [name, caption, size] : sizes) {
        auto* option = new QRadioButton(QString::fromLatin1(caption), Frame2);
        option->setObjectName(name);
        connect(option, &QRadioButton::clicked, this, [this, chosen = size] { emit sizeClick(chosen); });
    }

    auto* Frame4 = captioned(new QGroupBox(outside), "Frame4");
    for (int i = 0; i < 4; ++i) {
        auto* slider = new QSlider(Frame4);
        slider->setObjectName(QStringLiteral("Slider1(%1)").arg(i));
    }
    for (const char* name : {"Label6(1)", "Label6(2)", "Label6(3)", "Label6(4)"})
        captioned(new QLabel(Frame4), name);
    makeUnreachablePlaces(outside);
}

void CaptureOptions_frm::makeUnreachablePlaces(QWidget* parent)
{
    (new QCheckBox(tr("Capture specific window"), parent))->setObjectName("chkcapwindow");
    (new QCheckBox(tr("Use current system volume"), parent))->setObjectName("Check1");
    labelled(new QLineEdit(parent), "txtwinhandle", tr("Window Handle "));
    for (const char* name : {"txtleft", "txtTop", "txtwidth", "txtheight", "txtvolume1", "SS_txt",
                             "FPath_txt", "h_txt", "w_txt"})
        (new QLineEdit(parent))->setObjectName(name);
}

void CaptureOptions_frm::showControls(const session::OptionControls& controls)
{
    const auto& settings = controls.settings;
    put(*m_txtfps, settings.txtfps);
    put(*m_bitrate_txt, settings.bitrate_txt);
    const QSignalBlocker quietCursor(m_capturecursor_chk);
    m_capturecursor_chk->setChecked(settings.capturecursor_chk);
    const QSignalBlocker quietHighlight(m_highlightCursor_chk);
    m_highlightCursor_chk->setChecked(settings.highlightCursor_chk);
    showUnreachable(controls);
    showCaptions(controls.captions);
}

void CaptureOptions_frm::showUnreachable(const session::OptionControls& controls)
{
    m_VideoCodecs_cmb->clear();
    for (const auto& codec : controls.VideoCodecs_cmb_List)
        m_VideoCodecs_cmb->addItem(QString::fromStdString(codec));
    m_VideoCodecs_cmb->setEditText(QString::fromStdString(controls.VideoCodecs_cmb));
    const std::pair<const char*, bool> checks[] = {{"anim_chk", controls.anim_chk},
                                                   {"narration_chk", controls.narration_chk},
                                                   {"timing_chk", controls.timing_chk},
                                                   {"chkcapwindow", controls.chkcapwindow},
                                                   {"Check1", controls.Check1},
                                                   {"s_opt", controls.size == session::ShowSize::s_opt},
                                                   {"n_opt", controls.size == session::ShowSize::n_opt},
                                                   {"l_opt", controls.size == session::ShowSize::l_opt}};
    for (const auto& [name, checked] : checks)
        findChild<QAbstractButton*>(QString::fromLatin1(name))->setChecked(checked);
    const std::pair<const char*, const std::string&> boxes[] = {{"txtwinhandle", controls.txtwinhandle},
                                                                {"txtleft", controls.txtleft},
                                                                {"txtTop", controls.txtTop},
                                                                {"txtwidth", controls.txtwidth},
                                                                {"txtheight", controls.txtheight},
                                                                {"txtvolume1", controls.txtvolume1},
                                                                {"SS_txt", controls.SS_txt},
                                                                {"FPath_txt", controls.FPath_txt},
                                                                {"h_txt", controls.h_txt},
                                                                {"w_txt", controls.w_txt}};
    for (const auto& [name, value] : boxes)
        put(*findChild<QLineEdit*>(QString::fromLatin1(name)), value);
}

void CaptureOptions_frm::showCaptions(session::Language language)
{
    setWindowTitle(QString::fromUtf8(session::optionCaption("CaptureOptions_frm", language)));
    setAccessibleName(windowTitle());
    for (const auto& control : m_captioned)
        control.setText(QString::fromUtf8(session::optionCaption(control.control, language)));
    setLayoutDirection(language == session::Language::arabic ? Qt::RightToLeft : Qt::LeftToRight);
}

} // namespace quillora::forms
