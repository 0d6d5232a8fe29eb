#include "forms/camera_panel.h"

#include "forms/kept_keys.h"

#include <QAbstractItemView>
#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QMouseEvent>
#include <QRadioButton>
#include <QSignalBlocker>
#include <QSlider>
#include <QToolButton>
#include <QVBoxLayout>

#include <functional>
#include <stdexcept>
#include <utility>

namespace quillora::forms {

namespace {

/// A caption that can be clicked.
class ClickLabel : public QLabel {
  public:
    ClickLabel(const QString& text, QWidget* parent, std::function<void()> clicked)
        : QLabel(text, parent), m_clicked(std::move(clicked))
    {}

  protected:
    void mouseReleaseEvent(QMouseEvent* event) override
    {
        if (event->button() == Qt::LeftButton && rect().contains(event->position().toPoint()))
            m_clicked();
    }

  private:
    std::function<void()> m_clicked;
};

struct ControlNames {
    const char* label;
    const char* caption;
};

constexpr std::array<ControlNames, 3> kControls = {
    {{"Label11", "Brightness"}, {"Label12", "Contrast"}, {"Label13", "Hue"}}};

/// Farther down than the panel is ever high, in pixels.
constexpr int kBelowTheEdge = 1000;

QString indexed(const char* name, int i) { return QStringLiteral("%1_%2").arg(QLatin1String(name)).arg(i); }

} // namespace

CameraPanel::CameraPanel(QWidget* parent) : QWidget(parent)
{
    setObjectName("PicDraw1");
    setAccessibleName(tr("Camera"));

    m_devices = new QComboBox(this);
    m_devices->setObjectName("Combo1");
    m_devices->setAccessibleName(tr("Camera device"));
    // A camera's name may be longer than the panel is wide.
    m_devices->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    m_devices->setMinimumContentsLength(10);
    m_devices->view()->setAccessibleName(m_devices->accessibleName());
    m_devices->setEnabled(false);
    keepKeys(*m_devices, {Qt::Key_Space, Qt::Key_Home, Qt::Key_End});
    connect(m_devices, &QComboBox::activated, this, &CameraPanel::Combo1_Click);

    m_settings = new QToolButton(this);
    m_settings->setText(tr("Settings"));
    m_settings->setObjectName("Label14");
    m_settings->setAccessibleName(tr("Camera settings"));
    m_settings->setToolTip(tr("All that this camera can be set to"));
    keepKeys(*m_settings, {Qt::Key_Space});
    m_settings->hide();
    connect(m_settings, &QToolButton::clicked, this, &CameraPanel::Label14_Click);

    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(9, 2, 9, 10);
    column->setSpacing(7);
    column->addWidget(makeSwitch());
    // Side by side, so that the bars below don't move when the camera is switched.
    m_devices->setMinimumHeight(m_settings->sizeHint().height());
    auto* device = new QHBoxLayout;
    device->setSpacing(4);
    device->addWidget(m_devices, 1);
    device->addWidget(m_settings);
    column->addLayout(device);
    column->addWidget(makeControls());
    makeBackdropCommands();
}

void CameraPanel::makeBackdropCommands()
{
    struct Command {
        const char* name;
        QString caption;
        void (CameraPanel::*clicked)();
    };
    const Command commands[] = {{"Label19", tr("Change Background"), &CameraPanel::Label19_Click},
                                {"loadpic_lb", tr("Background Picture"), &CameraPanel::loadpic_lb_Click}};
    int top = kBelowTheEdge;
    for (const Command& command : commands) {
        auto* caption = new ClickLabel(command.caption, this,
                                       [this, clicked = command.clicked] { emit(this->*clicked)(); });
        caption->setObjectName(command.name);
        caption->setAccessibleName(command.caption);
        // The button on the stage does the same; these stand where nobody sees them.
        caption->move(0, top);
        top += caption->sizeHint().height();
    }
}

QWidget* CameraPanel::makeSwitch()
{
    auto* box = new QWidget(this);
    box->setAccessibleName(tr("Camera switch"));
    auto* row = new QHBoxLayout(box);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(14);
    const auto add = [&](const char* name, const QString& caption, const QString& spokenName) {
        auto* option = new QRadioButton(caption, box);
        option->setObjectName(name);
        option->setAccessibleName(spokenName);
        keepKeys(*option, {Qt::Key_Space, Qt::Key_Left, Qt::Key_Right});
        row->addWidget(option);
        return option;
    };
    auto* off = add("Option5", tr("Switch-off"), tr("Switch the camera off"));
    auto* on = add("Option6", tr("Switch-on"), tr("Switch the camera on"));
    row->addStretch();
    off->setChecked(true);
    const auto whenChosen = [this](QRadioButton* option, auto signal) {
        connect(option, &QRadioButton::toggled, this, [this, signal](bool chosen) {
            if (chosen)
                (this->*signal)();
        });
    };
    whenChosen(off, &CameraPanel::Option5_Click);
    whenChosen(on, &CameraPanel::Option6_Click);
    return box;
}

QWidget* CameraPanel::makeControls()
{
    auto* box = new QWidget(this);
    box->setAccessibleName(tr("Camera picture"));
    auto* grid = new QGridLayout(box);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->setHorizontalSpacing(8);
    grid->setVerticalSpacing(6);
    grid->setColumnStretch(1, 1);
    for (int i = 0; i < int(kControls.size()); ++i) {
        const auto& names = kControls.at(std::size_t(i));
        auto* caption = new ClickLabel(tr(names.caption), box, [this, i] {
            if (i == 1)
                emit Label12_Click();
            if (i == 2)
                emit Label13_Click();
        });
        caption->setObjectName(names.label);
        caption->setProperty("kind", "caption");
        caption->setAccessibleName(tr(names.caption));
        // This one's command is out of the pointer's reach.
        caption->setAttribute(Qt::WA_TransparentForMouseEvents, i == 2);
        m_controls.at(std::size_t(i)) = makeControl(i);
        grid->addWidget(caption, i, 0);
        grid->addWidget(control(i).slider, i, 1);
        grid->addWidget(control(i).automatic, i, 2);
    }
    return box;
}

CameraPanel::Control CameraPanel::makeControl(int i)
{
    const QString caption = tr(kControls.at(std::size_t(i)).caption);
    auto* slider = new QSlider(Qt::Horizontal, this);
    slider->setObjectName(indexed("Slider1", i));
    slider->setAccessibleName(caption);
    slider->setEnabled(false);
    keepKeys(*slider, {Qt::Key_Left, Qt::Key_Right, Qt::Key_Home, Qt::Key_End});
    connect(slider, &QSlider::valueChanged, this, [this, i] { emit Slider1_Change(i); });

    auto* automatic = new QCheckBox(tr("Auto"), this);
    automatic->setObjectName(indexed("Check1", i));
    automatic->setAccessibleName(tr("Automatic %1").arg(caption.toLower()));
    keepKeys(*automatic, {Qt::Key_Space});
    connect(automatic, &QCheckBox::clicked, this, [this, i] { emit Check1_Click(i); });
    return {slider, automatic};
}

void CameraPanel::clearCombo1()
{
    m_devices->clear();
    m_devices->setEnabled(false);
}

void CameraPanel::addToCombo1(const std::string& line)
{
    m_devices->addItem(QString::fromStdString(line));
    m_devices->setEnabled(true);
    // Open, the list has room for what is cut off while it is closed.
    m_devices->view()->setMinimumWidth(m_devices->view()->sizeHintForColumn(0) + 16);
}

void CameraPanel::setCombo1ListIndex(int index)
{
    if (index < 0 || index >= m_devices->count())
        throw std::out_of_range("the list of cameras has no such line");
    m_devices->setCurrentIndex(index);
}

int CameraPanel::Combo1ListIndex() const { return m_devices->currentIndex(); }

void CameraPanel::setSliderEnabled(int i, bool enabled) { control(i).slider->setEnabled(enabled); }

void CameraPanel::setSliderMinimum(int i, int minimum)
{
    const QSignalBlocker written(control(i).slider);
    control(i).slider->setMinimum(minimum);
}

void CameraPanel::setSliderMaximum(int i, int maximum)
{
    const QSignalBlocker written(control(i).slider);
    control(i).slider->setMaximum(maximum);
}

void CameraPanel::setSliderValue(int i, int value)
{
    const QSignalBlocker written(control(i).slider);
    control(i).slider->setValue(value);
}

int CameraPanel::sliderValue(int i) const { return control(i).slider->value(); }

void CameraPanel::setChecked(int i, bool checked) { control(i).automatic->setChecked(checked); }

bool CameraPanel::isChecked(int i) const { return control(i).automatic->isChecked(); }

void CameraPanel::setLabel14Visible(bool visible) { m_settings->setVisible(visible); }

} // namespace quillora::forms
