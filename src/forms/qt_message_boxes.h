#pragma once

#include "base/dialogs.h"

class QWidget;

namespace quillora::forms {

/// Message boxes owned by the main form.
class QtMessageBoxes : public base::MessageBoxes {
  public:
    /// @p owner outlives the boxes.
    explicit QtMessageBoxes(QWidget& owner) : m_owner(owner) {}

    base::BoxAnswer show(const base::MessageBox& box) override;

  private:
    QWidget& m_owner;
};

} // namespace quillora::forms
