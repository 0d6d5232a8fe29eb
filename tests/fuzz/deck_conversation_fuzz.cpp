// What a converter that a deck has taken over may say: random pieces of messages and random bytes, cut into
// lines in pieces of any length. Each line is refused, or survives being written and read again; memory stays
// bounded.

#include "deck/platform/libreoffice/conversion_messages.h"
#include "tests/fuzz/fuzz_input.h"

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <string_view>

namespace {

using namespace quillora::deck::libreoffice;
using quillora::tests::FuzzInput;

constexpr const char* kPieces[] = {"ready", "opened",  "laid-out", "painted", "unpaintable", "refused",
                                   "open",  "lay-out", "paint",    " ",       " ",           " ",
                                   "\n",    "\n",      "\n",       "1",       "0",           "3",
                                   "4",     "10000",   "10001",    "2000000", "99999999999", "-1",
                                   "+1",    "0x1",     "\r\n",     "\t"};

std::string stream(FuzzInput& input)
{
    std::string said;
    while (!input.atEnd()) {
        const int kind = input.choice(8);
        if (kind == 0)
            said.push_back(static_cast<char>(input.byte()));
        else if (kind == 1)
            said += std::to_string(input.number());
        else
            said += kPieces[input.choice(static_cast<int>(std::size(kPieces)))];
    }
    return said;
}

void require(bool holds, const char* what)
{
    if (holds)
        return;
    std::fprintf(stderr, "%s\n", what);
    std::abort();
}

/// Reads a line with @p parse; what it makes of it must be what it makes of its own words for it.
template <typename Parse>
void survive(const std::string& line, Parse parse)
{
    try {
        const auto message = parse(line);
        std::string again = lineOf(message);
        require(again.size() <= 81 && again.back() == '\n', "a message is too long, or no line");
        again.pop_back();
        require(parse(again) == message, "a message was another one after writing and reading");
    } catch (const ProtocolError&) {
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    FuzzInput input(data, size);
    const std::size_t piece = 1 + std::size_t(input.byte());
    const std::string said = stream(input);
    LineCutter cutter;
    try {
        for (std::size_t at = 0; at < said.size(); at += piece) {
            cutter.add(std::string_view(said).substr(at, piece));
            while (const auto line = cutter.next()) {
                require(line->find('\n') == std::string::npos, "a line holds the end of another");
                survive(*line, parseReply);
                survive(*line, parseRequest);
            }
        }
    } catch (const ProtocolError&) {
        // A line that doesn't end ends the conversation.
    }
    return 0;
}
