#include "panels/web_panel.h"

#include "base/skip_failures.h"
#include "base/text_number.h"

namespace quillora::panels {

namespace {

constexpr int kEnter = 13;
constexpr int kZoomStep = 10;
constexpr int kLargestZoom = 150;
constexpr int kSmallestZoom = 30;

} // namespace

WebPanel::WebPanel(const Ports& ports) : m_ports(ports)
{
    m_ports.WebBrowser1.setNewWindow2([this](bool& Cancel) { WebBrowser1_NewWindow2(Cancel); });
}

void WebPanel::http_txt_KeyPress(int character)
{
    if (character == kEnter)
        go();
}

void WebPanel::web_TB_ButtonClick(std::string_view key)
{
    auto& browser = m_ports.WebBrowser1;
    if (key == "go")
        go();
    else if (key == "back")
        base::skipFailures([&] { browser.GoBack(); });
    else if (key == "stop")
        base::skipFailures([&] { browser.Stop(); });
    else if (key == "forward")
        base::skipFailures([&] { browser.GoForward(); });
    else if (key == "zoomin")
        zoom(Step::in);
    else if (key == "zoomout")
        zoom(Step::out);
}

void WebPanel::WebBrowser1_NewWindow2(bool& Cancel)
{
    if (!CtrlKey(m_ports.keys))
        Cancel = true;
}

void WebPanel::go()
{
    base::skipFailures([&] { m_ports.WebBrowser1.Navigate(m_ports.controls.http_txt()); });
}

void WebPanel::zoom(Step step)
{
    m_steps.push_back(step);
    if (m_steps.size() == 1)
        takeNextStep();
}

void WebPanel::takeNextStep()
{
    const int number = base::leadingInteger(m_ports.controls.Label24());
    const int next = m_steps.front() == Step::in ? number + kZoomStep : number - kZoomStep;
    const bool inRange = m_steps.front() == Step::in ? next <= kLargestZoom : next >= kSmallestZoom;
    if (!inRange) {
        stepDone();
        return;
    }
    const std::string text = base::decimalText(next) + "%";
    try {
        m_ports.WebBrowser1.setDocumentZoom(text, [this, text](ZoomOutcome outcome) {
            // The page first: a read-out that the page doesn't have would be a wrong one.
            if (outcome == ZoomOutcome::applied)
                m_ports.controls.setLabel24(text);
            stepDone();
        });
    } catch (const std::exception&) {
        stepDone();
    }
}

void WebPanel::stepDone()
{
    m_steps.pop_front();
    if (!m_steps.empty())
        takeNextStep();
}

} // namespace quillora::panels
