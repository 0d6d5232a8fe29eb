#pragma once

#include "forms/platform/webengine/browser_messages.h"

#include <QObject>

#include <deque>

namespace quillora::forms::webengine {

/// The browser's end of the conversation with the recorder. The process ends when the recorder closes the
/// pipe or is gone.
class RecorderLink : public QObject {
    Q_OBJECT

  public:
    /// @p in delivers orders, @p out takes reports.
    RecorderLink(int in, int out);

    void report(const QByteArray& message);
    /// Whether a new window is refused. Waits for the recorder's answer, as the page does; orders that come
    /// before it are kept for later. A recorder that doesn't answer refuses, and what it says too late is not
    /// taken for the answer to another question.
    bool newWindowIsRefused();

  signals:
    /// An order, without its length.
    void ordered(const QByteArray& order);

  private:
    void read();
    void handleWaiting();

    int m_in;
    int m_out;
    MessageReader m_reader;
    std::deque<QByteArray> m_waiting{};
    quint32 m_lastQuestion = 0;
};

} // namespace quillora::forms::webengine
