#include "forms/drawing_palette.h"

#include "forms/colour_cell.h"
#include "forms/command_button.h"
#include "forms/look.h"
#include "forms/option_button.h"
#include "forms/option_frames.h"

namespace quillora::forms {

namespace {

using drawing::TwipsPosition;
using drawing::TwipsSize;

constexpr TwipsSize kPanelSize{2700, 1575};
// The frame's cells in view stand between the tools and the sheets; its other edges lie under the tools.
constexpr TwipsPosition kColourFramePosition{-300, 645};
// The colours in force: a sheet of the one behind a sheet of the other.
constexpr TwipsPosition kForeColourPosition{1650, 180};
constexpr TwipsPosition kFillColourPosition{1800, 315};

/// In the order of the tools' ids.
constexpr std::array<const char*, drawing::kToolCount> kToolIcons{
    "select_area", "pick_color", "eraser",       "fill",  "pencil",    "line",
    "rectangle",   "ellipse",    "text",         "arrow", "air_brush", "rounded_rectangle",
    "polygon",     "curve",      "filter_brush", "zoom",  "brush",     "hand",
};

/// In the order of the cells' indices.
constexpr std::array<const char*, drawing::kColourCells> kColourNames{
    "Black",     "Window colour", "Grey",       "Silver", "Maroon",       "Red",         "Olive",
    "Yellow",    "Dark green",    "Green",      "Teal",   "Cyan",         "Navy",        "Blue",
    "Purple",    "Magenta",       "Dark olive", "Cream",  "Forest green", "Light green", "Light blue",
    "Pale cyan", "Plum",          "Pink",       "Brown",  "Orange",
};

void place(QWidget& widget, TwipsPosition position, TwipsSize size)
{
    widget.setGeometry(pixels({position.Left}), pixels({position.Top}), pixels({size.Width}),
                       pixels({size.Height}));
}

/// Tab must not lead to what can't be seen.
void keepTabFromTheHidden(QWidget& control)
{
    const QWidget& frame = *control.parentWidget();
    if (control.isHidden() || !frame.rect().contains(control.geometry()))
        control.setFocusPolicy(Qt::NoFocus);
}

} // namespace

DrawingPalette::DrawingPalette(QWidget* parent) : QWidget(parent)
{
    setObjectName("Picture2");
    setAccessibleName(tr("Drawing tools"));
    setFixedWidth(pixels({kPanelSize.Width}));
    setFixedHeight(pixels({kPanelSize.Height}));
    QWidget* tools = makeTools();
    makeColours();
    makeSheets();
    tools->raise();
}

QWidget* DrawingPalette::makeTools()
{
    auto* frame = new QWidget(this);
    frame->setObjectName("fraTools");
    frame->setAccessibleName(tr("Tools"));
    place(*frame, drawing::kToolsFramePosition, drawing::kToolsFrameSize);

    for (int id = 0; id < drawing::kToolCount; ++id)
        m_tools[std::size_t(id)] = makeToolButton(id, frame);
    showTool(drawing::toolId(drawing::Tool::pencil));

    auto* clear =
        new CommandButton(CommandButton::Face::iconOnly, "clear_board", {}, tr("Clear the drawing"), frame);
    clear->setObjectName("Command2");
    clear->setToolTip(tr("Clear the drawing"));
    place(*clear, drawing::kClearButtonPosition, drawing::kToolButtonSize);
    connect(clear, &QToolButton::clicked, this, &DrawingPalette::Command2_Click);

    makeOptionFrames(frame);
    return frame;
}

CommandButton* DrawingPalette::makeToolButton(int id, QWidget* frame)
{
    const auto& tool = drawing::kTools[std::size_t(id)];
    const QString name = QString::fromUtf8(tool.toolTip);
    auto* button = new CommandButton(CommandButton::Face::iconOnly,
                                     QStringLiteral("tool_") + kToolIcons[std::size_t(id)], {}, name, frame);
    button->setObjectName(QStringLiteral("optTools_%1").arg(id));
    button->setToolTip(name);
    button->setCheckable(true);
    button->setVisible(tool.visible);
    place(*button, tool.position, drawing::kToolButtonSize);
    keepTabFromTheHidden(*button);
    // The press is the choice: the canvas has the focus before the button comes up.
    connect(button, &QToolButton::pressed, this, [this, id] { chooseTool(id); });
    connect(button, &QToolButton::clicked, this, [this, id] { showTool(id); });
    // Screen readers turn a button without pressing it.
    connect(button, &QToolButton::toggled, this, [this, id](bool checked) {
        if (checked != (id == m_shownTool))
            chooseTool(id);
    });
    return button;
}

void DrawingPalette::makeOptionFrames(QWidget* frame)
{
    m_widths = new WidthGridFrame(frame);
    m_widths->move(pixels({drawing::kWidthGridPosition.Left}), pixels({drawing::kWidthGridPosition.Top}));
    m_widths->hide();
    connect(m_widths, &PointerArea::MouseDown, this, &DrawingPalette::fraOptDot_MouseDown);
    m_fillings = new FillColumnFrame(frame);
    m_fillings->move(pixels({drawing::kFillColumnPosition.Left}), pixels({drawing::kFillColumnPosition.Top}));
    m_fillings->hide();
    connect(m_fillings, &PointerArea::MouseDown, this, &DrawingPalette::fraOptFill_MouseDown);
}

void DrawingPalette::chooseTool(int id)
{
    showTool(id);
    emit optTools_MouseDown(id, drawing::kLeftButton);
}

void DrawingPalette::showTool(int id)
{
    m_shownTool = id;
    for (int i = 0; i < drawing::kToolCount; ++i)
        m_tools[std::size_t(i)]->setChecked(i == id);
}

void DrawingPalette::makeColours()
{
    auto* frame = new QWidget(this);
    frame->setObjectName("fraColor");
    frame->setAccessibleName(tr("Colours"));
    place(*frame, kColourFramePosition, drawing::kColourFrameSize);

    for (int i = 0; i < drawing::kColourCells; ++i) {
        const auto& described = drawing::kColourPalette[std::size_t(i)];
        auto* cell = new ColourCell(ColourCell::Answers::press, frame);
        cell->setObjectName(QStringLiteral("lblColor_%1").arg(i));
        cell->setAccessibleName(tr(kColourNames[std::size_t(i)]));
        cell->setToolTip(tr("%1 (right button: for filling)").arg(cell->accessibleName()));
        cell->setColour(described.BackColor);
        cell->setVisible(described.visible);
        place(*cell, described.position, drawing::kColourCellSize);
        keepTabFromTheHidden(*cell);
        connect(cell, &ColourCell::MouseDown, this,
                [this, i](int button) { emit lblColor_MouseDown(i, button); });
        m_colours[std::size_t(i)] = cell;
    }

    m_fillColour = new ColourCell(ColourCell::Answers::doubleClick, frame);
    m_fillColour->setObjectName("lblFillColor");
    m_fillColour->setAccessibleName(tr("Fill colour"));
    m_fillColour->setToolTip(tr("Fill colour (double click: choose another)"));
    place(*m_fillColour, kFillColourPosition, drawing::kColourCellSize);
    connect(m_fillColour, &ColourCell::DblClick, this, &DrawingPalette::lblFillColor_DblClick);
    m_foreColour = new ColourCell(ColourCell::Answers::doubleClick, frame);
    m_foreColour->setObjectName("lblForeColor");
    m_foreColour->setAccessibleName(tr("Pen colour"));
    m_foreColour->setToolTip(tr("Pen colour (double click: choose another)"));
    place(*m_foreColour, kForeColourPosition, drawing::kColourCellSize);
    connect(m_foreColour, &ColourCell::DblClick, this, &DrawingPalette::lblForeColor_DblClick);
}

void DrawingPalette::makeSheets()
{
    for (const drawing::Sheet sheet :
         {drawing::Sheet::blank, drawing::Sheet::grid, drawing::Sheet::xyAxis, drawing::Sheet::squares}) {
        const auto& described = drawing::background(sheet);
        const auto text = [](std::string_view words) { return QString::fromUtf8(words); };
        auto* option = new OptionButton(text(described.caption), text(described.caption), this);
        option->setObjectName(text(described.option));
        option->setChecked(sheet == drawing::Sheet::blank);
        option->move(pixels({described.position.Left}), pixels({described.position.Top}));
        if (described.position.Top >= kPanelSize.Height)
            option->setFocusPolicy(Qt::NoFocus);
        // A click on the sheet that is there already would take the drawing with it.
        connect(option, &QRadioButton::toggled, this, [this, sheet](bool checked) {
            if (checked)
                emit Option_Click(sheet);
        });
    }
}

void DrawingPalette::showState(const drawing::DrawingCanvas& canvas)
{
    m_foreColour->setColour(canvas.lblForeColor);
    m_fillColour->setColour(canvas.lblFillColor);
    for (std::size_t i = 0; i < m_colours.size(); ++i)
        m_colours[i]->setColour(canvas.lblColor[i]);
    m_widths->showState(canvas.widthGrid);
    m_widths->setVisible(canvas.fraOptDotVisible);
    m_fillings->showState(canvas.fillColumn);
    m_fillings->setVisible(canvas.fraOptFillVisible);
}

} // namespace quillora::forms
