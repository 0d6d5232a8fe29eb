#pragma once

#include "audio/microphone_level.h"

#include <QDialog>

class QComboBox;
class QLabel;
class QSlider;

namespace quillora::forms {

/// The dialog "Microphone Level". It shows its controls and sends what the presenter does as signals that
/// carry the names of the events. Closing it hides it: what it shows outlasts each showing.
class mic_frm : public QDialog, public audio::MicrophoneControls {
    Q_OBJECT

  public:
    explicit mic_frm(QWidget* owner);

    void clear(List list) override;
    void addItem(List list, const std::string& text) override;
    int listIndex(List list) const override;
    void setListIndex(List list, int index) override;
    void setDevices(Devices devices) override;
    int sldVol() const override;
    void setSldVol(int value) override;
    std::string lblVolPer() const override;
    void setLblVolPer(const std::string& text) override;

  signals:
    void cboDev_Click();
    void cboRecLine_Click();
    void sldVol_Scroll();
    void sldVol_Click();

  private:
    void makeLists();
    void makeVolume();
    void makeCloseButton();
    QLabel* makeLabel(const char* name, const QString& text);
    QComboBox& box(List list) const;

    QComboBox* m_cboDev;
    QComboBox* m_cboRecLine;
    QSlider* m_sldVol;
    QLabel* m_lblVolPer;
};

} // namespace quillora::forms
