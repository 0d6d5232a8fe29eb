#pragma once

#include "base/dialogs.h"
#include "forms/preview_frm.h"
#include "forms/vantry_frm.h"
#include "session/review.h"

#include <filesystem>
#include <memory>

namespace quillora::app {

/// The review of a lecture: its logic, and a form that is made anew for each review, so that nothing of a
/// player is in memory before and after.
class ReviewParts : private session::PreviewForm {
  public:
    struct Ports {
        const session::SessionFields& fields;
        const session::Workspace& workspace;
        session::ZipReaderFactory& zip;
        base::CommonDialog& CommonDialog1;
        forms::Vantry_frm& window;
        std::filesystem::path playerProgram;
    };
    /// What the ports refer to must outlive this object.
    explicit ReviewParts(const Ports& ports);
    ~ReviewParts() override;

    /// Returns when the form is closed.
    void preview();

  private:
    void load() override;
    void showModal() override;
    void unload() override;
    session::VideoPlayer& WindowsMediaPlayer1() override;

    forms::Vantry_frm& m_window;
    std::filesystem::path m_playerProgram;
    session::Review m_logic;
    std::unique_ptr<forms::preview_frm> m_form{};
};

} // namespace quillora::app
