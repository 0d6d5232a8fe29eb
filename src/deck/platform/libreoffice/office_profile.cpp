#include "deck/platform/libreoffice/office_profile.h"

#include <fstream>
#include <stdexcept>

namespace quillora::deck::libreoffice {

namespace {

struct Setting {
    const char* path;
    const char* name;
    const char* value;
};

constexpr Setting kSettings[] = {
    {"/org.openoffice.Office.Common/Security/Scripting", "MacroSecurityLevel", "3"},
    {"/org.openoffice.Office.Common/Security/Scripting", "DisableMacrosExecution", "true"},
    {"/org.openoffice.Office.Common/Security/Scripting", "BlockUntrustedRefererLinks", "true"},
    {"/org.openoffice.Office.Common/Security/Scripting", "CheckDocumentEvents", "true"},
    {"/org.openoffice.Office.Common/Security/Scripting", "DisableActiveContent", "true"},
    {"/org.openoffice.Office.Common/Save/Document", "CreateBackup", "false"},
    {"/org.openoffice.Office.Recovery/AutoSave", "Enabled", "false"},
    {"/org.openoffice.Office.Common/Misc", "FirstRun", "false"},
    {"/org.openoffice.Office.Common/Misc", "CrashReport", "false"},
    {"/org.openoffice.Office.Common/Misc", "UseLocking", "false"},
    {"/org.openoffice.Office.Java/ApplicationSettings", "Enable", "false"},
    {"/org.openoffice.Office.Impress/Misc/Start", "EnableSdremote", "false"},
};

} // namespace

void writeOfficeProfile(const std::filesystem::path& folder)
{
    std::error_code error;
    std::filesystem::create_directories(folder / "user", error);
    std::ofstream file(folder / "user" / "registrymodifications.xcu");
    file << "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
            "<oor:items xmlns:oor=\"http://openoffice.org/2001/registry\""
            " xmlns:xs=\"http://www.w3.org/2001/XMLSchema\""
            " xmlns:xsi=\"http://www.w3.org/2001/XMLSchema-instance\">\n";
    for (const Setting& setting : kSettings)
        file << "<item oor:path=\"" << setting.path << "\"><prop oor:name=\"" << setting.name
             << "\" oor:op=\"fuse\"><value>" << setting.value << "</value></prop></item>\n";
    file << "</oor:items>\n";
    file.close();
    if (!file)
        throw std::runtime_error("no profile for the deck converter");
}

} // namespace quillora::deck::libreoffice
