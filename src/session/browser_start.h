#pragma once

namespace quillora::session {

/// The browsers of the stage, as the main form begins with them.
class BrowserStart {
  public:
    virtual ~BrowserStart() = default;
    /// Sends each to its first page.
    virtual void navigate() = 0;
};

} // namespace quillora::session
