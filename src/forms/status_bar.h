#pragma once

#include <QWidget>

#include <array>
#include <string>

class QLabel;

namespace quillora::forms {

/// The status bar `StatusBar1` with its six panels, numbered from 1. A text is on the screen when setPanel()
/// returns, since what follows it may block the window for a while.
class StatusBar : public QWidget {
    Q_OBJECT

  public:
    static constexpr int kPanels = 6;

    explicit StatusBar(QWidget* parent);

    /// A panel number outside 1 to 6 is ignored.
    void setPanel(int panel, const std::string& text);
    /// Empty for a panel number outside 1 to 6.
    std::string panel(int panel) const;

  private:
    std::array<QLabel*, kPanels> m_panels{};
};

} // namespace quillora::forms
