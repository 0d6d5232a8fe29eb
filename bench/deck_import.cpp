// deck_import DECK [ROUNDS]: how long a presenter waits for a deck, against the usual road, printing the deck
// to PDF with LibreOffice and painting that with pdftoppm, at the same picture size. Both in turn, so that
// whatever else the machine is doing weighs on both; the ratio of the medians is what counts.

#include "bench/statistics.h"
#include "deck/platform/libreoffice/libreoffice_converter.h"
#include "deck/platform/libreoffice/office_location.h"
#include "tests/support/child_process.h"
#include "tests/support/slide_picture.h"
#include "tests/support/temporary_folder.h"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <functional>
#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

namespace {

namespace fs = std::filesystem;
using namespace quillora;
using namespace quillora::deck;
using namespace quillora::deck::libreoffice;
using bench::median;
using tests::TemporaryFolder;

double secondsOf(const std::function<void()>& work)
{
    const auto start = std::chrono::steady_clock::now();
    work();
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

/// All that an import asks for, from the application to the last export.
int import(LibreOfficeConverter& converter, const fs::path& deck, const fs::path& folder)
{
    const std::unique_ptr<PresentationApplication> application = converter.createApplication();
    const std::unique_ptr<Presentation> presentation =
        application->Open(deck, ReadOnly::yes, Untitled::yes, WithWindow::no);
    presentation->SaveAs(folder, SaveAsFormat::png, EmbedTrueTypeFonts::yes);
    for (int n = 1; n <= presentation->slideCount(); ++n)
        presentation->slide(n)->Export(folder / ("slide" + std::to_string(n) + ".jpg"), "jpg", 560, 420);
    return presentation->slideCount();
}

void run(const std::vector<std::string>& arguments)
{
    if (tests::runToEnd(arguments, {}, std::chrono::minutes(5)) != 0)
        throw std::runtime_error(arguments.front() + " failed");
}

/// The peer. Its profile lasts, so that it is not slowed by making one each time.
void importByHand(const fs::path& deck, const fs::path& folder, const fs::path& profile, int width,
                  int height)
{
    run({"soffice", "-env:UserInstallation=file://" + profile.string(), "--headless", "--convert-to",
         R"(pdf:impress_pdf_Export:{"ExportHiddenSlides":{"type":"boolean","value":"true"}})", "--outdir",
         folder.string(), deck.string()});
    run({"pdftoppm", "-png", "-scale-to-x", std::to_string(width), "-scale-to-y", std::to_string(height),
         (folder / deck.stem()).string() + ".pdf", (folder / "slide").string()});
}

} // namespace

int main(int count, char** arguments)
{
    if (count < 2) {
        std::fprintf(stderr, "deck_import DECK [ROUNDS]\n");
        return EXIT_FAILURE;
    }
    const fs::path deck = fs::absolute(arguments[1]);
    const int rounds = count > 2 ? std::atoi(arguments[2]) : 5;
    const TemporaryFolder profile(TemporaryFolder::Name::plain);
    const LibreOfficeSetup setup{QUILLORA_DECK_CONVERTER, usualOfficeFolders()};

    // Once for the disk's sake, and to learn the size.
    const TemporaryFolder first(TemporaryFolder::Name::plain);
    LibreOfficeConverter warming(setup);
    const int slides = import(warming, deck, first.path());
    const tests::SlidePicture picture(first.path() / "Slide1.PNG");
    importByHand(deck, first.path(), profile.path(), picture.width(), picture.height());

    std::vector<double> unprepared;
    std::vector<double> prepared;
    std::vector<double> byHand;
    for (int round = 0; round < rounds; ++round) {
        const TemporaryFolder folder(TemporaryFolder::Name::plain);
        LibreOfficeConverter converter(setup);
        unprepared.push_back(secondsOf([&] { import(converter, deck, folder.path()); }));
        converter.prepare();
        // A presenter who chooses a file needs longer.
        std::this_thread::sleep_for(std::chrono::seconds(2));
        prepared.push_back(secondsOf([&] { import(converter, deck, folder.path()); }));
        byHand.push_back(secondsOf(
            [&] { importByHand(deck, folder.path(), profile.path(), picture.width(), picture.height()); }));
        std::printf("round %d: unprepared %.2f s, prepared %.2f s, soffice and pdftoppm %.2f s\n", round + 1,
                    unprepared.back(), prepared.back(), byHand.back());
        std::fflush(stdout);
    }
    std::printf("%s, %d slides, %d by %d: unprepared / peer %.3f, prepared / peer %.3f\n",
                deck.filename().c_str(), slides, picture.width(), picture.height(),
                median(unprepared) / median(byHand), median(prepared) / median(byHand));
    return EXIT_SUCCESS;
}
