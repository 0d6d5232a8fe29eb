#pragma once

#include "drawing/drawing_dialogs.h"

class QWidget;

namespace quillora::forms {

/// `cdlColor`, over the window that owns it.
class QtColourDialog : public drawing::ColourDialog {
  public:
    /// @p owner outlives the dialog.
    explicit QtColourDialog(QWidget& owner) : m_owner(owner) {}

    void ShowColor() override;

  private:
    QWidget& m_owner;
};

} // namespace quillora::forms
