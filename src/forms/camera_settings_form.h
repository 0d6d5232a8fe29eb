#pragma once

#include "stage/camera_settings.h"

class QWidget;

namespace quillora::forms {

/// The settings dialog of whatever camera there is, made from what its driver says that it has: a slider for
/// a number, a box for a switch, a list for a menu, a button for an action. Modal, owned by the main form. A
/// camera that vanishes meanwhile leaves the dialog with nothing to set.
class CameraSettingsForm : public stage::CameraSettingsDialog {
  public:
    /// @p owner outlives the form.
    explicit CameraSettingsForm(QWidget& owner) : m_owner(owner) {}

    void showModal(stage::CameraSettings& camera) override;

  private:
    QWidget& m_owner;
};

} // namespace quillora::forms
