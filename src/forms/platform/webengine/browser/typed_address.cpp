#include "forms/platform/webengine/browser/typed_address.h"

#include "panels/web_browser.h"

#include <QRegularExpression>

namespace quillora::forms::webengine {

std::optional<QUrl> typedAddress(const QString& text)
{
    static const QRegularExpression scheme(QStringLiteral("^([A-Za-z][A-Za-z0-9+.-]*):"));
    static const QRegularExpression port(QStringLiteral("^[A-Za-z0-9.-]+:[0-9]{1,5}(?=[/?#]|$)"));
    const QString typed = text.trimmed();
    if (typed.isEmpty() || typed.size() > panels::kLongestAddress)
        return std::nullopt;
    QString whole = typed;
    if (typed.startsWith(QStringLiteral("//")))
        whole = QStringLiteral("http:") + typed;
    else if (port.match(typed).hasMatch() || !scheme.match(typed).hasMatch())
        whole = QStringLiteral("http://") + typed;
    const QUrl address(whole, QUrl::TolerantMode);
    if (!isOfTheWeb(address))
        return std::nullopt;
    return address;
}

bool isOfTheWeb(const QUrl& address)
{
    return address.isValid() && !address.host().isEmpty() &&
           (address.scheme() == QStringLiteral("http") || address.scheme() == QStringLiteral("https"));
}

} // namespace quillora::forms::webengine
