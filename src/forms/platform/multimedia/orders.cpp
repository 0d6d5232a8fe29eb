#include "orders.h"

#include <QCoreApplication>

#include <array>
#include <cerrno>
#include <unistd.h>

Orders::Orders() : m_notifier(STDIN_FILENO, QSocketNotifier::Read)
{
    connect(&m_notifier, &QSocketNotifier::activated, this, &Orders::read);
}

void Orders::read()
{
    std::array<char, 4096> piece{};
    const auto count = ::read(STDIN_FILENO, piece.data(), piece.size());
    if (count < 0 && (errno == EINTR || errno == EAGAIN))
        return;
    if (count <= 0) {
        m_notifier.setEnabled(false);
        QCoreApplication::exit();
        return;
    }
    m_unread.append(piece.data(), count);
    for (auto end = m_unread.indexOf('\n'); end >= 0; end = m_unread.indexOf('\n')) {
        const QByteArray line = m_unread.left(end);
        m_unread.remove(0, end + 1);
        const auto blank = line.indexOf(' ');
        emit given(blank < 0 ? line : line.left(blank), blank < 0 ? QByteArray() : line.mid(blank + 1));
    }
}
