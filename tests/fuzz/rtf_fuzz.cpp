// Random pieces of RTF through the reader, and what it read through the writer and the reader again: that
// must not crash, and must give the same text the second time.

#include "panels/rtf_reader.h"
#include "panels/rtf_writer.h"
#include "tests/fuzz/fuzz_input.h"

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>

namespace {

using namespace quillora;
using tests::FuzzInput;

constexpr const char* kPieces[] = {
    "{",
    "}",
    "{",
    "}",
    "\\par ",
    "\\pard",
    "\\plain",
    "\\b",
    "\\b0",
    "\\i",
    "\\ul",
    "\\ulnone",
    "\\v",
    "\\qc",
    "\\qr",
    "\\ql",
    "\\tab",
    "\\line",
    "\\cell",
    "\\row",
    "\\~",
    "\\_",
    "\\*",
    "{\\*\\",
    "{\\fonttbl",
    "{\\colortbl",
    "{\\f1\\fcharset238 Arial;}",
    "\\fcharset2",
    "\\fcharset128",
    "\\cpg65001",
    "\\ansicpg65001",
    "\\ansicpg932",
    "\\mac",
    "\\red255",
    "\\green",
    "\\blue",
    ";",
    "{\\stylesheet",
    "{\\pict",
    "{\\info",
    "{\\field",
    "{\\*\\fldinst",
    "{\\listtext\\tab",
    "{\\pntext\\'b7}",
    "{\\*\\pn\\pnlvlblt",
    "{\\upr",
    "{\\*\\ud",
    "\\u55357?",
    "\\u56832?",
    "\\u8233?",
    "\\uc0",
    "\\uc3",
    "\\'",
    "\\'e9",
    "\\'8a\\'bf",
    "\\bin",
    "\r\n",
    "\t",
    "text",
    " ",
    "7",
    "-",
    "\\fs",
    "\\quilloratwips",
    "\\cf",
    "\\f",
    "\\u",
};

std::string stream(FuzzInput& input)
{
    std::string rtf = "{\\rtf1\\ansi";
    while (!input.atEnd()) {
        const int kind = input.choice(8);
        if (kind == 0)
            rtf.push_back(static_cast<char>(input.byte()));
        else if (kind == 1)
            rtf += std::to_string(input.number());
        else
            rtf += kPieces[input.choice(static_cast<int>(std::size(kPieces)))];
    }
    return rtf;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    FuzzInput input(data, size);
    const panels::RtfLimits limits{
        .characters = static_cast<std::size_t>(1 + input.byte() * 16), .depth = 20, .tableEntries = 8};
    const panels::RichText text = panels::readRtf(stream(input), limits);
    if (panels::readRtf(panels::writeRtf(text)) != text) {
        std::fputs("the text was another one after writing and reading\n", stderr);
        std::abort();
    }
    return 0;
}
