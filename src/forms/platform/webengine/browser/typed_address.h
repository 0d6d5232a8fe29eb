#pragma once

#include <QString>
#include <QUrl>

#include <optional>

namespace quillora::forms::webengine {

/// What a typed text leads to: an address of the web, plain or secure, or nothing. A text without a scheme is
/// a host, with or without a port and a path. Everything that is not of the web, such as "file:",
/// "javascript:" or a path, leads nowhere.
std::optional<QUrl> typedAddress(const QString& text);

/// Whether a page or a frame may lie at @p address.
bool isOfTheWeb(const QUrl& address);

} // namespace quillora::forms::webengine
