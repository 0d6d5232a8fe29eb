#include "forms/desktop.h"

#include <QDesktopServices>
#include <QFileInfo>
#include <QProcess>
#include <QStandardPaths>
#include <QUrl>

#include <stdexcept>

namespace quillora::forms {

namespace {

struct Role {
    const char* name;
    const char* document;
};

/// Help files of the kind that the name tells of can't be read here; a page that every browser shows can.
constexpr Role kRoles[] = {{"Support.chm", "Support.html"}};

constexpr const char* kToolKey = "SOFTWARE\\Microsoft\\Shared Tools\\MSINFO";
constexpr const char* kToolValue = "PATH";
/// In the order in which a desktop's own comes before one for all.
constexpr const char* kTools[] = {"kinfocenter",          "hardinfo2",           "hardinfo",
                                  "gnome-system-monitor", "mate-system-monitor", "xfce4-taskmanager"};
constexpr panels::KeyStore::Handle kToolHandle = 1;
constexpr long kNotFound = 2;
constexpr long kMoreData = 234;

bool isAddress(const QString& target)
{
    return target.startsWith(QStringLiteral("http://")) || target.startsWith(QStringLiteral("https://"));
}

QString documentOfRole(const QString& path)
{
    const QFileInfo file(path);
    for (const Role& role : kRoles)
        if (!file.exists() && file.fileName() == QLatin1String(role.name))
            return file.path() + u'/' + QLatin1String(role.document);
    return path;
}

bool startAlone(const QString& program, const QStringList& arguments)
{
    QProcess process;
    process.setProgram(program);
    process.setArguments(arguments);
    process.setStandardInputFile(QProcess::nullDevice());
    process.setStandardOutputFile(QProcess::nullDevice());
    process.setStandardErrorFile(QProcess::nullDevice());
    return process.startDetached();
}

QString findTool()
{
    for (const char* tool : kTools)
        if (const QString path = QStandardPaths::findExecutable(QLatin1String(tool)); !path.isEmpty())
            return path;
    return {};
}

} // namespace

void DesktopApplications::open(const std::string& target)
{
    QString text = QString::fromStdString(target);
    if (!isAddress(text)) {
        text = documentOfRole(text);
        if (!QFileInfo::exists(text))
            return;
    }
    const QString opener = QStandardPaths::findExecutable(QStringLiteral("xdg-open"));
    if (opener.isEmpty() || !startAlone(opener, {text}))
        QDesktopServices::openUrl(isAddress(text) ? QUrl(text) : QUrl::fromLocalFile(text));
}

bool DesktopPrograms::fileExists(const std::filesystem::path& file)
{
    return QFileInfo::exists(QString::fromStdString(file.string()));
}

void DesktopPrograms::run(const std::filesystem::path& program)
{
    if (!startAlone(QString::fromStdString(program.string()), {}))
        throw std::runtime_error("can't be started: " + program.string());
}

long DesktopSettings::RegOpenKeyExA(std::uint32_t root, const std::string& name, std::uint32_t, Handle& key)
{
    if (root != panels::HKEY_LOCAL_MACHINE || name != kToolKey)
        return kNotFound;
    key = kToolHandle;
    return 0;
}

long DesktopSettings::RegQueryValueExA(Handle key, const std::string& name, std::size_t capacity,
                                       Value& value)
{
    const std::string tool = findTool().toStdString();
    if (key != kToolHandle || name != kToolValue || tool.empty())
        return kNotFound;
    if (tool.size() + 1 > capacity)
        return kMoreData;
    value = {panels::kTextValue, tool + '\0'};
    return 0;
}

long DesktopSettings::RegCloseKey(Handle) { return 0; }

} // namespace quillora::forms
