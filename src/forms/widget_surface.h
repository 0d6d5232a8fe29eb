#pragma once

#include "stage/stage_surface.h"

class QWidget;

namespace quillora::forms {

/// A widget as a surface of the stage. The widget need not know it. Twips come out in whole pixels, each
/// length rounded by itself, as the layout's tables tell them.
class WidgetSurface : public stage::StageSurface {
  public:
    enum class AtFirst { shown, hidden };

    /// Puts @p widget, which must outlive this object, in its first place.
    WidgetSurface(QWidget& widget, const base::TwipRectangle& place, AtFirst visibility);

    base::TwipRectangle rectangle() const override { return m_place; }
    void move(const base::TwipRectangle& place) override;
    bool visible() const override;
    void setVisible(bool visible) override;
    void bringToFront() override;

  private:
    QWidget& m_widget;
    base::TwipRectangle m_place{};
};

} // namespace quillora::forms
