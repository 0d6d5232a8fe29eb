#include "deck/platform/libreoffice/conversion_messages.h"

#include <array>
#include <charconv>
#include <initializer_list>

namespace quillora::deck::libreoffice {

namespace {

constexpr std::size_t kMaxLineLength = 80;

/// Takes a message apart, word by word; every step throws where the line does not hold what is asked for.
class Words {
  public:
    explicit Words(std::string_view line) : m_rest(line) {}

    std::string_view word()
    {
        const std::size_t end = m_rest.find(' ');
        const std::string_view found = m_rest.substr(0, end);
        if (found.empty())
            throw ProtocolError("a word is missing in a message of the deck converter");
        m_rest.remove_prefix(end == std::string_view::npos ? m_rest.size() : end);
        return found;
    }

    int number(int least, int most)
    {
        if (m_rest.empty() || m_rest.front() != ' ')
            throw ProtocolError("a number is missing in a message of the deck converter");
        m_rest.remove_prefix(1);
        const std::string_view digits = word();
        int value = 0;
        const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), value);
        if (error != std::errc() || end != digits.data() + digits.size() || value < least || value > most)
            throw ProtocolError("a number is out of its range in a message of the deck converter");
        return value;
    }

    void end() const
    {
        if (!m_rest.empty())
            throw ProtocolError("a message of the deck converter is too long");
    }

  private:
    std::string_view m_rest;
};

int slideNumber(Words& words) { return words.number(1, kMaxSlides); }
int slotNumber(Words& words) { return words.number(0, kSlots - 1); }

Reply readReply(Words& words)
{
    const std::string_view name = words.word();
    if (name == "ready")
        return Ready{};
    if (name == "refused")
        return Refused{};
    if (name == "opened")
        return Opened{words.number(0, kMaxSlides)};
    // The members of an aggregate are made in their order, so the numbers are read in theirs.
    if (name == "laid-out")
        return LaidOut{words.number(1, kMaxPageLength), words.number(1, kMaxPageLength)};
    if (name == "painted")
        return Painted{slideNumber(words), slotNumber(words)};
    if (name == "unpaintable")
        return Unpaintable{slideNumber(words), slotNumber(words)};
    throw ProtocolError("an unknown message of the deck converter");
}

Request readRequest(Words& words)
{
    const std::string_view name = words.word();
    if (name == "open")
        return OpenRequest{};
    if (name == "lay-out")
        return LayOutRequest{};
    if (name == "paint")
        return PaintRequest{slideNumber(words), slotNumber(words), words.number(1, kMaxPictureLength),
                            words.number(1, kMaxPictureLength)};
    throw ProtocolError("an unknown message to the deck converter");
}

std::string line(std::string_view name, std::initializer_list<int> numbers)
{
    std::string text(name);
    for (const int number : numbers) {
        text += ' ';
        text += std::to_string(number);
    }
    text += '\n';
    return text;
}

struct LineOf {
    std::string operator()(const Ready&) const { return line("ready", {}); }
    std::string operator()(const Refused&) const { return line("refused", {}); }
    std::string operator()(const Opened& m) const { return line("opened", {m.slides}); }
    std::string operator()(const LaidOut& m) const { return line("laid-out", {m.width, m.height}); }
    std::string operator()(const Painted& m) const { return line("painted", {m.slide, m.slot}); }
    std::string operator()(const Unpaintable& m) const { return line("unpaintable", {m.slide, m.slot}); }
    std::string operator()(const OpenRequest&) const { return line("open", {}); }
    std::string operator()(const LayOutRequest&) const { return line("lay-out", {}); }
    std::string operator()(const PaintRequest& m) const
    {
        return line("paint", {m.slide, m.slot, m.width, m.height});
    }
};

} // namespace

Reply parseReply(std::string_view line)
{
    Words words(line);
    const Reply reply = readReply(words);
    words.end();
    return reply;
}

Request parseRequest(std::string_view line)
{
    Words words(line);
    const Request request = readRequest(words);
    words.end();
    return request;
}

std::string lineOf(const Reply& reply) { return std::visit(LineOf{}, reply); }

std::string lineOf(const Request& request) { return std::visit(LineOf{}, request); }

void LineCutter::add(std::string_view bytes) { m_pending += bytes; }

std::optional<std::string> LineCutter::next()
{
    const std::size_t end = m_pending.find('\n');
    if (end == std::string::npos ? m_pending.size() > kMaxLineLength : end > kMaxLineLength)
        throw ProtocolError("a message of the deck converter does not end");
    if (end == std::string::npos)
        return std::nullopt;
    std::string found = m_pending.substr(0, end);
    m_pending.erase(0, end + 1);
    return found;
}

} // namespace quillora::deck::libreoffice
