#pragma once

#include <functional>
#include <string>

namespace quillora::panels {

enum class ZoomOutcome { applied, failed };

/// In characters. An engine answers a longer address with an error page that holds all of it.
inline constexpr int kLongestAddress = 2'000'000;

/// An embedded browser on the stage, as the panels use it: `WebBrowser1` and `WebBrowser2`. Pages load on
/// their own; no operation waits for one. All of it on the one thread of forms and logic.
///
/// Its event `NewWindow2` is handed to whoever `setNewWindow2` names.
class WebBrowser {
  public:
    /// Sets Cancel to true to refuse a new window that a page asks for.
    using NewWindow2 = std::function<void(bool& Cancel)>;

    virtual ~WebBrowser() = default;

    /// @p address is what the presenter typed (UTF-8), whatever it is. An address that can't be shown, or is
    /// longer than kLongestAddress, leaves the page as it is.
    virtual void Navigate(const std::string& address) = 0;
    /// Throw std::runtime_error, or do nothing, where there is no history.
    virtual void GoBack() = 0;
    virtual void GoForward() = 0;
    virtual void Stop() = 0;

    /// `Document.body.Style.Zoom`, such as "110%". The page lives elsewhere and may be busy, so the answer
    /// comes through @p done: exactly once, on this thread, perhaps before this call returns. It is `failed`
    /// where there is no page, the document has no body, or the page does not answer.
    virtual void setDocumentZoom(const std::string& zoom, std::function<void(ZoomOutcome)> done) = 0;

    /// While true, a page's scripts can't show boxes.
    virtual void setSilent(bool silent) = 0;

    virtual void setNewWindow2(NewWindow2 handler) = 0;
};

} // namespace quillora::panels
