#include "panels/rtf_lexer.h"

#include <algorithm>
#include <limits>

namespace quillora::panels {

namespace {

bool isLetter(char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z'); }

bool isDigit(char c) { return c >= '0' && c <= '9'; }

int hexValue(char c)
{
    if (isDigit(c))
        return c - '0';
    if (c >= 'a' && c <= 'f')
        return c - 'a' + 10;
    return c >= 'A' && c <= 'F' ? c - 'A' + 10 : -1;
}

/// Line ends mean nothing between the pieces of a stream; nor does a zero, with which some writers end it.
bool isFiller(char c) { return c == '\r' || c == '\n' || c == '\0'; }

std::string_view takeWhile(std::string_view& rest, auto&& holds)
{
    const auto end = std::ranges::find_if_not(rest, holds);
    const auto length = static_cast<std::size_t>(end - rest.begin());
    const std::string_view taken = rest.substr(0, length);
    rest.remove_prefix(length);
    return taken;
}

} // namespace

RtfToken RtfLexer::next()
{
    takeWhile(m_rest, isFiller);
    if (m_rest.empty())
        return {};
    const char first = m_rest.front();
    if (first == '{' || first == '}') {
        m_rest.remove_prefix(1);
        return {.kind = first == '{' ? RtfToken::Kind::groupBegin : RtfToken::Kind::groupEnd};
    }
    if (first == '\\') {
        m_rest.remove_prefix(1);
        return control();
    }
    const auto isText = [](char c) { return c != '{' && c != '}' && c != '\\' && !isFiller(c); };
    return {.kind = RtfToken::Kind::text, .name = takeWhile(m_rest, isText)};
}

RtfToken RtfLexer::control()
{
    if (m_rest.empty())
        return {};
    if (isLetter(m_rest.front()))
        return controlWord();
    const std::string_view symbol = m_rest.substr(0, 1);
    m_rest.remove_prefix(1);
    if (symbol == "'" && m_rest.size() >= 2) {
        const int high = hexValue(m_rest[0]);
        const int low = hexValue(m_rest[1]);
        if (high >= 0 && low >= 0) {
            m_rest.remove_prefix(2);
            return {.kind = RtfToken::Kind::byte, .byte = static_cast<std::uint8_t>(high * 16 + low)};
        }
    }
    // The two bytes of one line end are one symbol.
    if (symbol == "\r" && m_rest.starts_with('\n'))
        m_rest.remove_prefix(1);
    return {.kind = RtfToken::Kind::controlSymbol, .name = symbol};
}

RtfToken RtfLexer::controlWord()
{
    const std::string_view name = takeWhile(m_rest, isLetter);
    const std::optional<int> value = parameter();
    if (m_rest.starts_with(' '))
        m_rest.remove_prefix(1);
    if (name == "bin") {
        const auto length = static_cast<std::size_t>(std::max(0, value.value_or(0)));
        m_rest.remove_prefix(std::min(length, m_rest.size()));
        return {.kind = RtfToken::Kind::binary};
    }
    return {.kind = RtfToken::Kind::controlWord, .name = name, .parameter = value};
}

std::optional<int> RtfLexer::parameter()
{
    const bool negative = m_rest.size() >= 2 && m_rest[0] == '-' && isDigit(m_rest[1]);
    if (!negative && (m_rest.empty() || !isDigit(m_rest.front())))
        return std::nullopt;
    if (negative)
        m_rest.remove_prefix(1);
    constexpr long long kMost = std::numeric_limits<int>::max();
    long long value = 0;
    for (const char digit : takeWhile(m_rest, isDigit))
        value = std::min(kMost, value * 10 + (digit - '0'));
    return static_cast<int>(negative ? -value : value);
}

} // namespace quillora::panels
