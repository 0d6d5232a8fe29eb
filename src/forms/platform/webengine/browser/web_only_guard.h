#pragma once

#include <QWebEngineUrlRequestInterceptor>

namespace quillora::forms::webengine {

/// Lets through what pages fetch from the web or make themselves, and nothing of this computer: the last word
/// on every request, whatever page, frame, redirect or script it comes from. Asked on the engine's own
/// thread.
class WebOnlyGuard : public QWebEngineUrlRequestInterceptor {
    Q_OBJECT

  public:
    using QWebEngineUrlRequestInterceptor::QWebEngineUrlRequestInterceptor;

    void interceptRequest(QWebEngineUrlRequestInfo& request) override;
};

} // namespace quillora::forms::webengine
