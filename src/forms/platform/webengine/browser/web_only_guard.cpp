#include "forms/platform/webengine/browser/web_only_guard.h"

#include <QSet>
#include <QString>
#include <QUrl>

namespace quillora::forms::webengine {

void WebOnlyGuard::interceptRequest(QWebEngineUrlRequestInfo& request)
{
    static const QSet<QString> harmless = {
        QStringLiteral("http"), QStringLiteral("https"), QStringLiteral("ws"),    QStringLiteral("wss"),
        QStringLiteral("data"), QStringLiteral("blob"),  QStringLiteral("about"),
    };
    if (!harmless.contains(request.requestUrl().scheme()))
        request.block(true);
}

} // namespace quillora::forms::webengine
