#include "forms/file_filters.h"

#include <QObject>
#include <QRegularExpression>

namespace quillora::forms {

namespace {

QString masksOf(const QString& text)
{
    static const QRegularExpression separator(QStringLiteral("[;\\s]+"));
    return text.split(separator, Qt::SkipEmptyParts).join(u' ');
}

/// The label without the masks that it may name itself; the dialog shows its own list of them.
QString bareLabel(const QString& label)
{
    static const QRegularExpression masks(QStringLiteral("\\s*\\([^()]*\\*[^()]*\\)\\s*$"));
    return QString(label).remove(masks).trimmed();
}

} // namespace

QStringList nameFilters(const QString& filter)
{
    const QStringList fields = filter.split(u'|');
    QStringList filters;
    for (qsizetype i = 0; i + 1 < fields.size(); i += 2) {
        const QString masks = masksOf(fields[i + 1]);
        if (!masks.isEmpty())
            filters << QStringLiteral("%1 (%2)").arg(bareLabel(fields[i]), masks);
    }
    return filters;
}

QString maskFilter(const QString& text)
{
    if (!text.contains(u'*') && !text.contains(u'?'))
        return {};
    return QObject::tr("All of these (%1)").arg(masksOf(text));
}

} // namespace quillora::forms
