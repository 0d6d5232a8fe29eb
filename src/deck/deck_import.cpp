#include "deck/deck_import.h"

#include "base/skip_failures.h"
#include "base/text_number.h"
#include "session/slide_status.h"

#include <memory>
#include <stdexcept>
#include <system_error>

namespace fs = std::filesystem;

namespace quillora::deck {

using base::skipFailures;

namespace {

/// The name that the dialog proposes. It is also how a cancelled dialog is known: the name is still there.
constexpr auto kNothingChosen = "*.ppt; *.pptx; *.pps";

constexpr int kExportWidth = 560;
constexpr int kExportHeight = 420;

/// What a statement on an object that could not be had comes to.
template <typename Object>
Object& have(Object* object)
{
    if (!object)
        throw std::runtime_error("there is no such object");
    return *object;
}

bool currentDirectoryHoldsAFile()
{
    std::error_code failure;
    for (fs::directory_iterator entry(".", failure), end; !failure && entry != end;
         entry.increment(failure)) {
        std::error_code unreadable;
        if (!entry->is_directory(unreadable))
            return true;
    }
    return false;
}

} // namespace

void DeckImport::openSlides()
{
    const auto pptFileName = askForDeck();
    if (pptFileName == kNothingChosen)
        return;
    auto& fields = m_ports.fields;
    m_ports.workspace.deleteAll();
    fields.Text1 = pptFileName;
    fields.workspacePath = m_ports.workspace.root().string();
    std::unique_ptr<PresentationApplication> application;
    convert(application, pptFileName);
    skipFailures([&] { m_ports.slides.LoadSlide(); }, [&] { closingCheck(); },
                 [&] { m_ports.window.setStatusPanel(2, fields.slideStatus); },
                 [&] { m_ports.window.setMousePointer({}); });
}

std::string DeckImport::askForDeck()
{
    auto& dialog = m_ports.CommonDialog1;
    dialog.FileName = kNothingChosen;
    // An odd spelling: the dialog takes what it can read of it.
    dialog.DefaultExt = "ppt; ppx, pps";
    dialog.DialogTitle = "Open PowerPoint File";
    dialog.Filter = "PowerPoint 2003 (*.ppt)|*.ppt|PowerPoint 2007/2010 (*.pptx)|*.pptx|"
                    "PowerPointShow (*.pps)|*.pps";
    m_ports.converter.prepare();
    skipFailures([&] { dialog.ShowOpen(); });
    return dialog.FileName;
}

void DeckImport::convert(std::unique_ptr<PresentationApplication>& application,
                         const std::string& pptFileName)
{
    std::unique_ptr<Presentation> presentation;
    skipFailures(
        [&] { application = m_ports.converter.createApplication(); },
        [&] {
            presentation =
                have(application.get()).Open(pptFileName, ReadOnly::yes, Untitled::yes, WithWindow::no);
        },
        [&] { m_ports.window.setStatusPanel(1, "Loading slides..."); },
        [&] { m_ports.window.setMousePointer(m_ports.assets / "WAIT02.CUR"); });
    countSlides(presentation.get());
    exportSlides(presentation.get());
    m_ports.fields.ppt_txt = "ppt";
}

void DeckImport::countSlides(Presentation* presentation)
{
    auto& fields = m_ports.fields;
    int count = 0;
    skipFailures([&] { count = have(presentation).slideCount(); });
    fields.slideCount = base::decimalText(count);
    fields.scount_lb = fields.slideCount;
    fields.currentSlide = "1";
    fields.slideStatus = session::slideStatusText(fields);
}

void DeckImport::exportSlides(Presentation* presentation)
{
    const auto& fields = m_ports.fields;
    skipFailures(
        [&] { have(presentation).SaveAs(fields.workspacePath, SaveAsFormat::png, EmbedTrueTypeFonts::yes); });
    const int count = base::leadingInteger(fields.slideCount);
    for (int n = 1; n <= count; ++n)
        skipFailures([&] {
            const auto slide = have(presentation).slide(n);
            have(slide.get())
                .Export(fields.workspacePath + "/slide" + base::decimalText(n) + ".jpg", "jpg", kExportWidth,
                        kExportHeight);
        });
}

/// Weak on purpose: it asks about the directory that the process happens to be in, not about the pictures. A
/// deck that breaks halfway leaves the recorder usable, and a stricter test would take that away.
void DeckImport::closingCheck()
{
    if (!currentDirectoryHoldsAFile()) {
        m_ports.boxes.show({.text =
                                "Sorry, not able to import slides! Please close the program and run it with "
                                "administrator privileges (righ-click on the program icon and select Run "
                                "as Administrator)"});
        return;
    }
    skipFailures([&] { m_ports.slide_img.LoadFile({}); }, [&] { m_ports.slides.ResizeSlide(); });
}

} // namespace quillora::deck
