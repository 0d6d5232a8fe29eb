#include "session/review.h"

#include "base/skip_failures.h"
#include "session/file_lookup.h"

#include <system_error>

namespace fs = std::filesystem;

namespace quillora::session {

using base::skipFailures;

void Review::preview()
{
    m_ports.preview_frm.load();
    Form_Load();
    m_ports.preview_frm.showModal();
}

void Review::Form_Load()
{
    if (m_ports.fields.asf_name_lb != "no_video")
        auto_review();
}

void Review::Command1_Click() { m_ports.preview_frm.unload(); }

void Review::Command2_Click() { Form_Load(); }

void Review::auto_review()
{
    const auto zip = zipReader();
    emptyPreview();
    // The dialog's last name, not the path that was saved to: a name that lost its last four letters at the
    // save is not found here.
    play(zip.get(), m_ports.CommonDialog1.FileName);
}

void Review::Command3_Click()
{
    constexpr auto* kAnyContainer = "*.asf";
    auto& dialog = m_ports.CommonDialog1;
    const auto zip = zipReader();
    emptyPreview();
    skipFailures([&] {
        dialog.FileName = kAnyContainer;
        dialog.DefaultExt = "asf";
        dialog.DialogTitle = "Preview Video Presentation";
        dialog.Filter = "Quillora Video File (*.asf)|*.asf";
        dialog.ShowOpen();
    });
    if (dialog.FileName != kAnyContainer)
        play(zip.get(), dialog.FileName);
}

/// None where it can't be made; what lies in the folder is played all the same.
std::unique_ptr<ZipReader> Review::zipReader()
{
    std::unique_ptr<ZipReader> zip;
    skipFailures([&] { zip = m_ports.zip.create(); });
    return zip;
}

/// One file that can't be deleted leaves the others to go.
void Review::emptyPreview()
{
    for (const auto& file : filesEndingIn(m_ports.workspace.preview(), "")) {
        std::error_code stays;
        fs::remove(file, stays);
    }
}

void Review::play(ZipReader* zip, const std::string& container)
{
    const auto folder = m_ports.workspace.preview();
    skipFailures([&] {
        if (zip == nullptr)
            return;
        zip->setZipFileName(container);
        zip->setExtractDir(folder);
        zip->setExtractList(0);
        zip->Unzip();
    });
    const auto videos = filesEndingIn(folder, ".wmv");
    // Without a video the path is that of the folder, with the separator behind it.
    const auto video = folder.string() + "/" + (videos.empty() ? "" : videos.front().filename().string());
    skipFailures([&] { m_ports.preview_frm.WindowsMediaPlayer1().setURL(video); },
                 [&] { m_ports.preview_frm.WindowsMediaPlayer1().play(); });
}

} // namespace quillora::session
