#include "panels/html_cost.h"

#include <algorithm>
#include <cstddef>
#include <string>
#include <vector>

namespace quillora::panels {
namespace {

constexpr std::size_t kLargest = 2'000'000;
constexpr std::size_t kMostElements = 30'000;
constexpr std::size_t kDeepest = 100;
constexpr std::size_t kMostSlowElements = 1'000;
/// Characters of style sheets, times elements: each rule is held against each of them. A long element counts
/// as several, for the classes that it may have.
constexpr std::size_t kMostStyling = 10'000'000;
constexpr std::size_t kLengthOfAnElement = 20;

/// What holds no others and costs nothing, or is closed by its next neighbour.
constexpr std::u16string_view kFlat[] = {u"br",   u"dd", u"dt", u"hr", u"li",
                                         u"meta", u"p",  u"td", u"th", u"tr"};
/// What holds no others, and yet takes a toolkit time by the square of how many there are.
constexpr std::u16string_view kSlow[] = {u"area",  u"base", u"col",    u"img",
                                         u"input", u"link", u"option", u"wbr"};

constexpr std::u16string_view kBlanks =
    u"\t\n\v\f\r \u0085\u00A0\u1680\u2000\u2001\u2002\u2003\u2004\u2005\u2006"
    u"\u2007\u2008\u2009\u200A\u2028\u2029\u202F\u205F\u3000";

bool isBlank(char16_t unit) { return kBlanks.find(unit) != kBlanks.npos; }

std::u16string lowerCase(std::u16string_view text)
{
    std::u16string lower(text);
    for (char16_t& unit : lower)
        if (unit >= u'A' && unit <= u'Z')
            unit = char16_t(unit - u'A' + u'a');
    return lower;
}

std::u16string_view nameAt(std::u16string_view element)
{
    std::size_t length = 0;
    while (length < element.size() && element[length] != u'<' && element[length] != u'>' &&
           !isBlank(element[length]))
        ++length;
    // As in "<br/>".
    if (length > 0 && element[length - 1] == u'/')
        --length;
    return element.substr(0, length);
}

/// How far a tag or comment goes. To the end of the text, where toolkits could disagree about it.
std::size_t tagLength(std::u16string_view element)
{
    if (element.starts_with(u"!--"))
        return std::min(element.find(u"-->", 3), element.size());
    std::size_t at = 0;
    for (char16_t before = u' '; at < element.size() && element[at] != u'>'; ++at) {
        if (element[at] == u'"' || element[at] == u'\'')
            at = before == u'=' ? element.find(element[at], at + 1) : element.npos;
        if (at == element.npos)
            return element.size();
        if (!isBlank(element[at]))
            before = element[at];
    }
    return at;
}

/// The elements that are open at a place, and the slow ones up to there. An end that fits none closes
/// nothing.
class OpenElements {
  public:
    bool tooMany() const { return m_names.size() > kDeepest || m_slow > kMostSlowElements; }

    void open(std::u16string_view name)
    {
        if (std::ranges::find(kSlow, name) != std::end(kSlow))
            ++m_slow;
        else if (!name.empty() && std::ranges::find(kFlat, name) == std::end(kFlat))
            m_names.push_back(name);
    }
    /// Closes what lies in it, too.
    void close(std::u16string_view name)
    {
        const auto found = std::find(m_names.rbegin(), m_names.rend(), name);
        if (found != m_names.rend())
            m_names.erase(found.base() - 1, m_names.end());
    }

  private:
    std::vector<std::u16string_view> m_names{};
    std::size_t m_slow = 0;
};

/// How much of @p element may be rules of a style sheet. One that holds anything in brackets may go on to the
/// end of the document: which of them end it is each toolkit's secret.
std::size_t styleSheetLength(std::u16string_view element)
{
    if (!element.starts_with(u"style"))
        return 0;
    const std::size_t end = element.find(u'<');
    const bool isPlain = end != element.npos && element.substr(end).starts_with(u"</style>");
    return isPlain ? end : element.size();
}

} // namespace

bool isCheapHtml(std::u16string_view html)
{
    if (html.size() > kLargest)
        return false;
    const std::u16string text = lowerCase(html);
    OpenElements open;
    std::size_t elements = 0;
    std::size_t styles = 0;
    // What looks like the end of an element inside a tag or comment is none.
    std::size_t endOfTag = 0;
    for (std::size_t at = text.find(u'<'); at != text.npos; at = text.find(u'<', at + 1)) {
        const std::size_t begin = std::min(text.find_first_not_of(kBlanks, at + 1), text.size());
        const auto element = std::u16string_view(text).substr(begin);
        const bool isInside = at < endOfTag;
        if (!isInside)
            endOfTag = begin + tagLength(element);
        if (element.starts_with(u'/') && !isInside)
            open.close(nameAt(element.substr(1)));
        else if (!element.starts_with(u'/') && !element.starts_with(u'!'))
            open.open(nameAt(element));
        styles += styleSheetLength(element);
        if (++elements > kMostElements || open.tooMany())
            return false;
    }
    return styles * (elements + text.size() / kLengthOfAnElement) <= kMostStyling;
}

} // namespace quillora::panels
