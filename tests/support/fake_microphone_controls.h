#pragma once

#include "audio/microphone_level.h"

#include <functional>
#include <map>
#include <stdexcept>
#include <string>
#include <vector>

namespace quillora::tests {

/// The controls of the dialog as it is designed. Clicks go to where the form would send them.
class FakeMicrophoneControls : public audio::MicrophoneControls {
  public:
    std::function<void(List)> onClick{};
    Devices devices = Devices::some;
    int slider = 0;
    std::string label = "100%";

    const std::vector<std::string>& items(List list) const { return m_lists.at(list).items; }

    void clear(List list) override { m_lists[list] = {}; }
    void addItem(List list, const std::string& text) override { m_lists[list].items.push_back(text); }
    int listIndex(List list) const override { return m_lists.at(list).index; }
    void setListIndex(List list, int index) override
    {
        if (index < -1 || index >= static_cast<int>(m_lists[list].items.size()))
            throw std::out_of_range("no such item");
        m_lists[list].index = index;
        onClick(list);
    }
    void setDevices(Devices present) override { devices = present; }
    int sldVol() const override { return slider; }
    void setSldVol(int value) override { slider = value; }
    std::string lblVolPer() const override { return label; }
    void setLblVolPer(const std::string& text) override { label = text; }

  private:
    struct Items {
        std::vector<std::string> items{};
        int index = -1;
    };

    std::map<List, Items> m_lists{{List::cboDev, {}}, {List::cboRecLine, {}}};
};

} // namespace quillora::tests
