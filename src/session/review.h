#pragma once

#include "base/dialogs.h"
#include "session/preview_form.h"
#include "session/session_fields.h"
#include "session/workspace.h"
#include "session/zip_reader.h"

#include <memory>
#include <string>

namespace quillora::session {

/// The review of what was recorded: what the form `preview_frm` does. It unpacks a container into the Preview
/// folder and has the first video there played. Slides and index are not looked at.
///
/// Nothing that goes wrong is told: a file that is no container, or has no video, leaves an idle player.
class Review {
  public:
    struct Ports {
        const SessionFields& fields;
        const Workspace& workspace;
        ZipReaderFactory& zip;
        base::CommonDialog& CommonDialog1;
        PreviewForm& preview_frm;
    };
    /// What the ports refer to must outlive this object.
    explicit Review(const Ports& ports) : m_ports(ports) {}

    /// Shows the form with the container that was saved last, and returns when it is closed.
    void preview();

    /// Close.
    void Command1_Click();
    /// Review, which nobody sees: plays what was saved last once more.
    void Command2_Click();
    /// Browse. Cancel leaves the player as it was, and the Preview folder empty.
    void Command3_Click();

  private:
    void Form_Load();
    void auto_review();
    std::unique_ptr<ZipReader> zipReader();
    void emptyPreview();
    void play(ZipReader* zip, const std::string& container);

    Ports m_ports;
};

} // namespace quillora::session
