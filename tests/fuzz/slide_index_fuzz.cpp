// Clock readings and slide numbers of any text, in any order: the index takes them or refuses them, and what
// it writes begins with slide 1 at time zero and holds one entry for each that it took.

#include "session/slide_time_index.h"
#include "tests/fuzz/fuzz_input.h"
#include "tests/support/file_contents.h"
#include "tests/support/temporary_folder.h"

#include <cstdio>
#include <cstdlib>
#include <exception>
#include <string>
#include <string_view>

using namespace quillora;
using tests::FuzzInput;

namespace {

void require(bool holds, const char* what)
{
    if (holds)
        return;
    std::fprintf(stderr, "slide_index_fuzz: %s\n", what);
    std::abort();
}

std::string anyText(FuzzInput& input)
{
    constexpr std::string_view kLetters = "0123456789::::-+.e <>\"&\xff";
    std::string text;
    for (int length = input.choice(24); length > 0; --length)
        text.push_back(kLetters[std::size_t(input.choice(int(kLetters.size())))]);
    return text;
}

std::string anyTime(FuzzInput& input)
{
    if (input.choice(3) == 0)
        return anyText(input);
    return std::to_string(input.choice(100)) + ":" + std::to_string(input.number()) + ":" +
           std::to_string(input.choice(60));
}

int countOf(std::string_view wanted, std::string_view text)
{
    int count = 0;
    for (auto at = text.find(wanted); at != std::string_view::npos; at = text.find(wanted, at + 1))
        ++count;
    return count;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static const tests::TemporaryFolder disk;
    session::SessionFields fields;
    session::Workspace workspace(fields, {.appData = disk.path(), .localAppData = disk.path()});
    workspace.makeFolders();
    session::SlideTimeIndex index(fields, workspace);
    FuzzInput input(data, size);
    int taken = 0;
    while (!input.atEnd()) {
        constexpr const char* kStates[] = {"record", "pause", "record", "stop"};
        fields.recordState = kStates[input.choice(4)];
        fields.runningTime = anyTime(input);
        fields.currentSlide = std::to_string(input.number());
        const auto before = index.slideEntries().size();
        try {
            index.updateXMLSlideTime();
        } catch (const std::exception&) {
            require(index.slideEntries().size() == before, "a refused entry left something behind");
        }
        taken += index.slideEntries().size() != before ? 1 : 0;
        if (input.choice(40) == 0) {
            index.clear();
            taken = 0;
        }
    }
    index.XMLSlideFinish();
    const auto text = tests::readFile(workspace.root() / "slidetime.xml");
    require(text.starts_with("<slides>\r\n<slide currentS=\"1\">\r\n<minutes>00:00:00</minutes>"),
            "a wrong beginning");
    require(text.ends_with("</slides>\r\n"), "a wrong end");
    require(countOf("<slide currentS=", text) == taken + 1, "an entry is missing, or one too many");
    return 0;
}
