#include "forms/option_frames.h"

#include "forms/form_colour.h"
#include "forms/look.h"

#include <QPainter>

namespace quillora::forms {

/// One of the frames' shapes. A press on it is the frame's.
class OptionShapeWidget : public QWidget {
  public:
    enum class Form { dot, rectangle };

    OptionShapeWidget(Form form, QWidget* parent) : QWidget(parent), m_form(form)
    {
        setAttribute(Qt::WA_TransparentForMouseEvents);
    }

    void showState(const drawing::OptionShape& state)
    {
        m_state = state;
        update();
    }

  protected:
    void paintEvent(QPaintEvent*) override
    {
        QPainter painter(this);
        painter.setPen(toQColor(m_state.BorderColor));
        painter.setBrush(toQColor(m_state.FillColor));
        const QRect shape = rect().adjusted(0, 0, -1, -1);
        if (m_form == Form::dot)
            painter.drawEllipse(shape);
        else
            painter.drawRect(shape);
    }

  private:
    Form m_form;
    drawing::OptionShape m_state;
};

namespace {

constexpr int kCellSide = 250;
// The first row of each frame, and the distance of the fill modes' rows.
constexpr int kFirstFillRow = 125;
constexpr int kFillRowPitch = 325;
constexpr int kFillRowHeight = 300;

QWidget* makeMarker(const char* name, const QString& spokenName, drawing::TwipsSize size, QWidget* parent)
{
    auto* marker = new QWidget(parent);
    marker->setObjectName(name);
    marker->setAccessibleName(spokenName);
    marker->setAttribute(Qt::WA_TransparentForMouseEvents);
    marker->setAutoFillBackground(true);
    QPalette look = marker->palette();
    look.setColor(QPalette::Window, colours::kAccent);
    marker->setPalette(look);
    marker->resize(pixels({size.Width}), pixels({size.Height}));
    return marker;
}

void standAt(QWidget& marker, drawing::TwipsPosition place)
{
    marker.move(pixels({place.Left}), pixels({place.Top}));
}

} // namespace

WidthGridFrame::WidthGridFrame(QWidget* parent) : PointerArea(drawing::ScaleUnit::twips, parent)
{
    setObjectName("fraOptDot");
    setAccessibleName(tr("Line width"));
    resize(pixels({drawing::kWidthGridSize.Width}), pixels({drawing::kWidthGridSize.Height}));
    m_lblDot = makeMarker("lblDot", tr("Chosen line width"), {kCellSide, kCellSide}, this);
    for (int i = 0; i < drawing::WidthGrid::kCells; ++i) {
        auto* dot = new OptionShapeWidget(OptionShapeWidget::Form::dot, this);
        dot->setObjectName(QStringLiteral("shpDot_%1").arg(i));
        dot->setAccessibleName(tr("Line width %1").arg(i + 1));
        const int side = i + 3;
        const auto cell = drawing::widthMarkerPosition(i);
        const int inset = (pixels({kCellSide}) - side) / 2;
        dot->setGeometry(pixels({cell.Left}) + inset, pixels({cell.Top}) + inset, side, side);
        m_shpDot[std::size_t(i)] = dot;
    }
}

void WidthGridFrame::showState(const drawing::WidthGrid& grid)
{
    standAt(*m_lblDot, grid.lblDot);
    for (std::size_t i = 0; i < m_shpDot.size(); ++i)
        m_shpDot[i]->showState(grid.shpDot[i]);
}

FillColumnFrame::FillColumnFrame(QWidget* parent) : PointerArea(drawing::ScaleUnit::twips, parent)
{
    constexpr std::array kModes{"Outline", "Outline and inside", "Inside"};
    setObjectName("fraOptFill");
    setAccessibleName(tr("Filling"));
    resize(pixels({drawing::kFillColumnSize.Width}), pixels({drawing::kFillColumnSize.Height}));
    constexpr drawing::TwipsSize kMarkerSize{60, 60};
    m_lblFill = makeMarker("lblFill", tr("Chosen filling"), kMarkerSize, this);
    constexpr int kInset = 75;
    for (int i = 0; i < drawing::FillColumn::kModes; ++i) {
        auto* shape = new OptionShapeWidget(OptionShapeWidget::Form::rectangle, this);
        shape->setObjectName(QStringLiteral("shpRect_%1").arg(i));
        shape->setAccessibleName(tr(kModes[std::size_t(i)]));
        shape->setGeometry(pixels({kInset}), pixels({kFirstFillRow + i * kFillRowPitch}),
                           pixels({drawing::kFillColumnSize.Width - 2 * kInset}), pixels({kFillRowHeight}));
        m_shpRect[std::size_t(i)] = shape;
    }
    m_lblFill->raise();
}

void FillColumnFrame::showState(const drawing::FillColumn& column)
{
    standAt(*m_lblFill, {0, column.lblFillTop});
    for (std::size_t i = 0; i < m_shpRect.size(); ++i)
        m_shpRect[i]->showState(column.shpRect[i]);
}

} // namespace quillora::forms
