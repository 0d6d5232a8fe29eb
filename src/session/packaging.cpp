#include "session/packaging.h"

#include "base/characters.h"
#include "session/file_lookup.h"

namespace quillora::session {
namespace {

using namespace std::chrono_literals;

constexpr int kContainerFilter = 1;
constexpr int kVideoFilter = 2;

std::string folderOf(const std::string& fileName)
{
    const auto separator = fileName.rfind('/');
    return separator == std::string::npos ? "" : fileName.substr(0, separator + 1);
}

} // namespace

std::string withoutLastFour(std::string_view title)
{
    int dropped = 0;
    while (!title.empty() && dropped < 4) {
        if (base::beginsCharacter(title.back()))
            ++dropped;
        title.remove_suffix(1);
    }
    return std::string(title);
}

void Packaging::ZipAsf()
{
    pack();
    askForName();
    save();
    m_ports.boxes.show({.text = "Congratulations!\r\rYour video presentation has been saved successfully!"});
}

void Packaging::pack()
{
    auto& fields = m_ports.fields;
    const auto zip = m_ports.zip.create();
    fields.workspacePath = m_ports.workspace.root().string() + "/";
    zip->AddFileToZip(findIgnoringCase(fields.workspacePath + "version.txt"));
    zip->AddFileToZip(findIgnoringCase(fields.workspacePath + "Slide1.PNG"));
    m_ports.sleeper.Sleep(500ms);
    for (const auto* ending : {".jpg", ".xml", ".wmv"})
        for (const auto& file : filesEndingIn(fields.workspacePath, ending))
            zip->AddFileToZip(file);
    zip->setDestinationZipFile(fields.workspacePath + "MyZip.zip");
    zip->Zip();
}

void Packaging::askForName()
{
    auto& dialog = m_ports.CommonDialog1;
    // The dialog is shared with Open, whose choice of a file type means nothing here.
    dialog.FilterIndex = kContainerFilter;
    for (;;) {
        dialog.Filter = "Advanced Systems Format (*.asf)|*.asf|Windows Media Video (*.wmv)|*.wmv";
        dialog.DialogTitle = "Save Video Presentation As";
        dialog.FileName.clear();
        dialog.ShowSave();
        if (!dialog.FileName.empty())
            return;
        m_ports.boxes.show({.text = "Video presentation is not saved: You must save your video presentation "
                                    "before exit!"});
    }
}

void Packaging::save()
{
    auto& fields = m_ports.fields;
    const auto& dialog = m_ports.CommonDialog1;
    const auto name = folderOf(dialog.FileName) + withoutLastFour(dialog.FileTitle);
    if (dialog.FilterIndex == kContainerFilter) {
        m_ports.copier.copyOver(fields.workspacePath + "/MyZip.zip", name + ".asf");
        fields.asf_name_lb = name + ".asf";
    }
    if (dialog.FilterIndex == kVideoFilter)
        m_ports.copier.copyOver(fields.TempVidFile_txt, name + ".wmv");
}

} // namespace quillora::session
