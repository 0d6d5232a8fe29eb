#pragma once

#include <Qt>

#include <initializer_list>

class QWidget;

namespace quillora::forms {

/// Lets @p control have these keys for itself while it has the focus, rather than the presenter's commands
/// that the window gives them. It takes the focus from Tab only: after a click with the mouse the presenter's
/// keys still go to the stage.
void keepKeys(QWidget& control, std::initializer_list<Qt::Key> keys);

} // namespace quillora::forms
