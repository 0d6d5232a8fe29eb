// Random pieces of HTML through the estimate of what reading them costs: that must not crash, and nothing
// that comes first may hide that too many elements lie in each other.

#include "panels/html_cost.h"
#include "tests/fuzz/fuzz_input.h"

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>

namespace {

using namespace quillora;
using tests::FuzzInput;

constexpr const char16_t* kPieces[] = {
    u"<",      u">",    u"</",       u"/>",      u"<!--",     u"-->",   u"<!",     u"<?",    u"=",
    u"'",      u"\"",   u"&quot;",   u" ",       u"\u00A0",   u"b",     u"p",      u"<b>",   u"</b>",
    u"<B x='", u"<p>",  u"</p>",     u"<li>",    u"<br/>",    u"<div>", u"</div>", u"<img ", u"<table>",
    u"<tr>",   u"<td>", u"</table>", u"<style>", u"</style>", u".a{}",  u"text",
};

std::u16string page(FuzzInput& input)
{
    std::u16string html;
    while (!input.atEnd()) {
        if (input.choice(8) == 0)
            html.push_back(static_cast<char16_t>(input.number()));
        else
            html += kPieces[input.choice(static_cast<int>(std::size(kPieces)))];
    }
    return html;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    FuzzInput input(data, size);
    std::u16string html = page(input);
    panels::isCheapHtml(html);
    for (int depth = 0; depth <= 100; ++depth)
        html += u"<b title='</b>'>";
    if (panels::isCheapHtml(html)) {
        std::fputs("elements that lie too deep in each other were not seen\n", stderr);
        std::abort();
    }
    return 0;
}
