#pragma once

#include "drawing/backgrounds.h"
#include "drawing/drawing_canvas.h"
#include "drawing/pointer_event.h"

#include <QWidget>

#include <array>

namespace quillora::forms {

class ColourCell;
class CommandButton;
class FillColumnFrame;
class WidthGridFrame;

/// The panel `Picture2` with the drawing board's tools, colours and sheets. All controls are there, at their
/// places; frames and panel cut off what lies below them, so that two rows of tools, four colours and three
/// sheets are what a presenter sees. What is cut off can't be reached by Tab either. Arrays of controls are
/// named with their index, such as `optTools_4`.
class DrawingPalette : public QWidget {
    Q_OBJECT

  public:
    explicit DrawingPalette(QWidget* parent);

    /// Colours, frames and grids as @p canvas has them. The tools' buttons aren't part of it: they show what
    /// was pressed last.
    void showState(const drawing::DrawingCanvas& canvas);

  signals:
    void optTools_MouseDown(int index, int button);
    void Command2_Click();
    void lblColor_MouseDown(int index, int button);
    void lblForeColor_DblClick();
    void lblFillColor_DblClick();
    void fraOptDot_MouseDown(const drawing::PointerEvent& event);
    void fraOptFill_MouseDown(const drawing::PointerEvent& event);
    /// One of `Option1` to `Option4`, when it becomes the chosen one.
    void Option_Click(drawing::Sheet sheet);

  private:
    QWidget* makeTools();
    CommandButton* makeToolButton(int id, QWidget* frame);
    void makeOptionFrames(QWidget* frame);
    void makeColours();
    void makeSheets();
    void chooseTool(int id);
    void showTool(int id);

    // Not a group of the toolkit's, in which Tab would reach one button only.
    std::array<CommandButton*, drawing::kToolCount> m_tools{};
    int m_shownTool = -1;
    ColourCell* m_foreColour = nullptr;
    ColourCell* m_fillColour = nullptr;
    std::array<ColourCell*, drawing::kColourCells> m_colours{};
    WidthGridFrame* m_widths = nullptr;
    FillColumnFrame* m_fillings = nullptr;
};

} // namespace quillora::forms
