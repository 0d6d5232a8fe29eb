#include "forms/platform/webengine/browser/page_window.h"

#include <utility>

namespace quillora::forms::webengine {

namespace {

constexpr QSize kWindowSize{900, 640};

} // namespace

PageWindow::PageWindow(QWebEngineProfile& profile, GuardedPage::Owner owner)
{
    setAttribute(Qt::WA_DeleteOnClose);
    setContextMenuPolicy(Qt::NoContextMenu);
    setPage(new GuardedPage(profile, std::move(owner), this));
    resize(kWindowSize);
    setWindowTitle(QStringLiteral("Quillora Recorder"));
    connect(page(), &QWebEnginePage::titleChanged, this, [this](const QString& title) {
        setWindowTitle(title.left(200) + QStringLiteral(" - Quillora Recorder"));
    });
    connect(page(), &QWebEnginePage::windowCloseRequested, this, &QWidget::close);
    connect(page(), &QWebEnginePage::renderProcessTerminated, this, &QWidget::close);
}

} // namespace quillora::forms::webengine
