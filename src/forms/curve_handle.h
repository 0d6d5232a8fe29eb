#pragma once

#include "forms/pointer_area.h"

namespace quillora::forms {

/// One of the four handles `imgBezier` of a curve in progress: a small square with a light rim, to be seen on
/// ink of any colour. Its events count in twips.
class CurveHandle : public PointerArea {
    Q_OBJECT

  public:
    CurveHandle(int index, QWidget* parent);

  protected:
    void paintEvent(QPaintEvent* event) override;
};

} // namespace quillora::forms
