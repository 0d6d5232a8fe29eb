#pragma once

#include "forms/platform/webengine/browser/guarded_page.h"

#include <QWebEngineView>

namespace quillora::forms::webengine {

/// A window that a page was granted: the page alone, under the same rules. It goes when it is closed, when
/// its page asks for that, and when its page stops.
class PageWindow : public QWebEngineView {
    Q_OBJECT

  public:
    PageWindow(QWebEngineProfile& profile, GuardedPage::Owner owner);
};

} // namespace quillora::forms::webengine
