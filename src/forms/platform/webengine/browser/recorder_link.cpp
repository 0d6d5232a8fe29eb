#include "forms/platform/webengine/browser/recorder_link.h"

#include <QElapsedTimer>
#include <QMetaObject>
#include <QSocketNotifier>

#include <poll.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>

namespace quillora::forms::webengine {

namespace {

/// The longest order is a pasted address or text.
constexpr quint32 kLongestOrder = 16 * 1024 * 1024;
constexpr int kAnswerPatienceMs = 2000;

Order orderOf(const QByteArray& order) { return Order(quint8(order.front())); }

struct Answer {
    quint32 question = 0;
    bool refused = true;
};

Answer answerIn(const QByteArray& order)
{
    Answer answer;
    quint8 kind = 0;
    QDataStream in(order);
    in >> kind >> answer.question >> answer.refused;
    return answer;
}

/// At once, past whatever the engine still has to tidy up: nothing of this process is kept.
[[noreturn]] void endProcess() { std::_Exit(EXIT_SUCCESS); }

} // namespace

RecorderLink::RecorderLink(int in, int out) : m_in(in), m_out(out), m_reader(kLongestOrder)
{
    auto* notifier = new QSocketNotifier(m_in, QSocketNotifier::Read, this);
    connect(notifier, &QSocketNotifier::activated, this, [this] {
        read();
        handleWaiting();
    });
}

void RecorderLink::report(const QByteArray& message)
{
    qsizetype written = 0;
    while (written < message.size()) {
        const auto count = ::write(m_out, message.data() + written, std::size_t(message.size() - written));
        if (count < 0 && errno != EINTR)
            endProcess();
        written += count > 0 ? count : 0;
    }
}

bool RecorderLink::newWindowIsRefused()
{
    const quint32 question = ++m_lastQuestion;
    report(message(Report::newWindow, question));
    QElapsedTimer waited;
    waited.start();
    while (waited.elapsed() < kAnswerPatienceMs) {
        pollfd state{m_in, POLLIN, 0};
        if (::poll(&state, 1, 50) <= 0)
            continue;
        read();
        for (auto order = m_waiting.begin(); order != m_waiting.end(); ++order) {
            if (orderOf(*order) != Order::newWindow)
                continue;
            const Answer answer = answerIn(*order);
            if (answer.question != question)
                continue;
            m_waiting.erase(order);
            QMetaObject::invokeMethod(this, &RecorderLink::handleWaiting, Qt::QueuedConnection);
            return answer.refused;
        }
    }
    QMetaObject::invokeMethod(this, &RecorderLink::handleWaiting, Qt::QueuedConnection);
    return true;
}

void RecorderLink::read()
{
    char bytes[65536];
    const auto count = ::read(m_in, bytes, sizeof bytes);
    if (count == 0 || (count < 0 && errno != EINTR && errno != EAGAIN))
        endProcess();
    if (count < 0)
        return;
    m_reader.append(QByteArray(bytes, count));
    while (auto order = m_reader.next())
        m_waiting.push_back(*std::move(order));
}

void RecorderLink::handleWaiting()
{
    while (!m_waiting.empty()) {
        const QByteArray order = m_waiting.front();
        m_waiting.pop_front();
        emit ordered(order);
    }
}

} // namespace quillora::forms::webengine
