#pragma once

#include "drawing/option_grids.h"
#include "forms/pointer_area.h"

#include <array>

namespace quillora::forms {

class OptionShapeWidget;

/// Frame `fraOptDot`: the line width grid, a dot of each width with the marker `lblDot` behind the chosen
/// one.
class WidthGridFrame : public PointerArea {
    Q_OBJECT

  public:
    explicit WidthGridFrame(QWidget* parent);
    void showState(const drawing::WidthGrid& grid);

  private:
    QWidget* m_lblDot;
    std::array<OptionShapeWidget*, drawing::WidthGrid::kCells> m_shpDot;
};

/// Frame `fraOptFill`: the fill mode column, a rectangle of each mode with the marker `lblFill` at the chosen
/// one.
class FillColumnFrame : public PointerArea {
    Q_OBJECT

  public:
    explicit FillColumnFrame(QWidget* parent);
    void showState(const drawing::FillColumn& column);

  private:
    QWidget* m_lblFill;
    std::array<OptionShapeWidget*, drawing::FillColumn::kModes> m_shpRect;
};

} // namespace quillora::forms
