#include "forms/camera_settings_form.h"

#include <QAbstractItemView>
#include <QCheckBox>
#include <QComboBox>
#include <QDialog>
#include <QDialogButtonBox>
#include <QGridLayout>
#include <QLabel>
#include <QPushButton>
#include <QScrollArea>
#include <QScrollBar>
#include <QSignalBlocker>
#include <QSlider>
#include <QTimer>
#include <QVBoxLayout>

#include <algorithm>
#include <cstdint>
#include <functional>
#include <initializer_list>
#include <vector>

namespace quillora::forms {

namespace {

using stage::CameraSetting;
using stage::CameraSettings;
using Kind = CameraSetting::Kind;

/// How often the dialog looks at what the camera has changed by itself, such as the exposure.
constexpr int kLookAgainMs = 300;
constexpr int kTallest = 420;

/// One row of the dialog, and how a new state of its setting gets into it.
struct Row {
    std::uint32_t id;
    std::function<void(const CameraSetting&)> show;
};

/// What a row does with the presenter's choice.
using Change = std::function<void(int value)>;

class RowMaker {
  public:
    RowMaker(QGridLayout& grid, const CameraSetting& setting, Change change)
        : m_grid(grid),
          m_line(grid.rowCount()),
          m_name(QString::fromStdString(setting.name)),
          m_change(std::move(change))
    {}

    std::function<void(const CameraSetting&)> make(const CameraSetting& setting)
    {
        switch (setting.kind) {
        case Kind::number:
            return makeNumber(setting);
        case Kind::onOff:
            return makeOnOff();
        case Kind::menu:
            return makeMenu(setting);
        case Kind::button:
            return makeButton();
        }
        return [](const CameraSetting&) {};
    }

  private:
    template <typename Control>
    Control* named(Control* control)
    {
        control->setObjectName(m_name);
        control->setAccessibleName(m_name);
        return control;
    }

    /// The driver's name as it stands, also where it has what a button takes for the mark of a key.
    QString captionOfButton() const { return QString(m_name).replace('&', "&&"); }

    QLabel* addCaption()
    {
        auto* caption = new QLabel;
        caption->setTextFormat(Qt::PlainText);
        caption->setText(m_name);
        caption->setAccessibleName(m_name);
        m_grid.addWidget(caption, m_line, 0);
        return caption;
    }

    std::function<void(const CameraSetting&)> makeNumber(const CameraSetting& setting)
    {
        auto* caption = addCaption();
        auto* slider = named(new QSlider(Qt::Horizontal));
        slider->setRange(setting.minimum, setting.maximum);
        slider->setSingleStep(setting.step);
        const std::int64_t span = std::int64_t(setting.maximum) - setting.minimum;
        slider->setPageStep(std::max(setting.step, int(span / 10)));
        auto* number = new QLabel;
        number->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
        number->setMinimumWidth(44);
        m_grid.addWidget(slider, m_line, 1);
        m_grid.addWidget(number, m_line, 2);
        const auto tell = [number, name = m_name](int value) {
            number->setText(QString::number(value));
            number->setAccessibleName(QStringLiteral("%1: %2").arg(name).arg(value));
        };
        QObject::connect(slider, &QSlider::valueChanged, slider, [tell, change = m_change](int value) {
            tell(value);
            change(value);
        });
        return [caption, slider, number, tell](const CameraSetting& now) {
            for (QWidget* part : std::initializer_list<QWidget*>{caption, slider, number})
                part->setEnabled(now.changeable);
            // A knob that is being moved isn't to be taken out of the presenter's hand.
            if (slider->isSliderDown())
                return;
            const QSignalBlocker written(slider);
            slider->setValue(now.value);
            tell(now.value);
        };
    }

    std::function<void(const CameraSetting&)> makeOnOff()
    {
        auto* box = named(new QCheckBox(captionOfButton()));
        m_grid.addWidget(box, m_line, 0, 1, 3);
        QObject::connect(box, &QCheckBox::clicked, box, [change = m_change](bool on) { change(on ? 1 : 0); });
        return [box](const CameraSetting& now) {
            box->setEnabled(now.changeable);
            box->setChecked(now.value != 0);
        };
    }

    std::function<void(const CameraSetting&)> makeMenu(const CameraSetting& setting)
    {
        auto* caption = addCaption();
        auto* list = named(new QComboBox);
        for (const auto& entry : setting.entries)
            list->addItem(QString::fromStdString(entry.name), entry.value);
        m_grid.addWidget(list, m_line, 1, 1, 2);
        QObject::connect(list, &QComboBox::activated, list,
                         [list, change = m_change](int line) { change(list->itemData(line).toInt()); });
        return [caption, list](const CameraSetting& now) {
            caption->setEnabled(now.changeable);
            list->setEnabled(now.changeable);
            if (!list->view()->isVisible())
                list->setCurrentIndex(list->findData(now.value));
        };
    }

    std::function<void(const CameraSetting&)> makeButton()
    {
        auto* button = named(new QPushButton(captionOfButton()));
        m_grid.addWidget(button, m_line, 0, 1, 3, Qt::AlignLeft);
        QObject::connect(button, &QPushButton::clicked, button, [change = m_change] { change(1); });
        return [button](const CameraSetting& now) { button->setEnabled(now.changeable); };
    }

    QGridLayout& m_grid;
    int m_line;
    QString m_name;
    Change m_change;
};

class Dialog : public QDialog {
  public:
    Dialog(CameraSettings& camera, QWidget& owner) : QDialog(&owner), m_camera(camera)
    {
        setObjectName("CameraSettings");
        setWindowTitle(tr("Camera settings"));
        setAccessibleName(windowTitle());

        m_area = new QScrollArea(this);
        m_area->setFrameShape(QFrame::NoFrame);
        m_area->setWidgetResizable(true);
        m_area->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
        m_area->setAccessibleName(windowTitle());
        m_area->setFocusPolicy(Qt::NoFocus);

        auto* buttons = new QDialogButtonBox(QDialogButtonBox::Close, this);
        connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);

        auto* column = new QVBoxLayout(this);
        column->addWidget(m_area);
        column->addWidget(buttons);

        auto* lookAgain = new QTimer(this);
        connect(lookAgain, &QTimer::timeout, this, [this] {
            m_camera.refreshSettings();
            showSettings();
        });
        lookAgain->start(kLookAgainMs);
        showSettings();
    }

  private:
    void showSettings()
    {
        const auto settings = m_camera.settings();
        if (!m_area->widget() || !std::ranges::equal(settings, m_rows, {}, &CameraSetting::id, &Row::id))
            makeRows(settings);
        for (std::size_t i = 0; i < settings.size(); ++i)
            m_rows[i].show(settings[i]);
    }

    void makeRows(const std::vector<CameraSetting>& settings)
    {
        m_rows.clear();
        auto* inside = new QWidget;
        inside->setAccessibleName(windowTitle());
        auto* grid = new QGridLayout(inside);
        grid->setHorizontalSpacing(14);
        grid->setVerticalSpacing(9);
        grid->setColumnMinimumWidth(1, 190);
        grid->setColumnStretch(1, 1);
        for (const auto& setting : settings) {
            RowMaker maker(*grid, setting,
                           [this, id = setting.id](int value) { m_camera.changeSetting(id, value); });
            m_rows.push_back({setting.id, maker.make(setting)});
        }
        if (settings.empty()) {
            auto* nothing = new QLabel(tr("The camera has nothing to set."));
            nothing->setAccessibleName(nothing->text());
            grid->addWidget(nothing, 0, 0, 1, 3);
        }
        grid->setRowStretch(grid->rowCount(), 1);
        m_area->setWidget(inside);
        if (!settings.empty()) {
            const QSize room = inside->sizeHint();
            m_area->setMinimumSize(room.width() + m_area->verticalScrollBar()->sizeHint().width(),
                                   std::min(room.height(), kTallest));
        }
    }

    CameraSettings& m_camera;
    QScrollArea* m_area;
    std::vector<Row> m_rows{};
};

} // namespace

void CameraSettingsForm::showModal(CameraSettings& camera) { Dialog(camera, m_owner).exec(); }

} // namespace quillora::forms
