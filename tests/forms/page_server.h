#pragma once

#include <QByteArray>
#include <QObject>
#include <QString>
#include <QTcpServer>

#include <functional>
#include <map>
#include <string>
#include <vector>

class QTcpSocket;

namespace quillora::tests {

/// Serves the pages of a test, on a port of its own of this computer, and keeps what was asked of it: pages
/// tell a test what they see by asking for an address. Lives on the thread of the test's event loop.
class PageServer : public QObject {
  public:
    struct Answer {
        QByteArray body{};
        QByteArray type = "text/html; charset=utf-8";
        QByteArray status = "200 OK";
        /// Whole lines, each with its end.
        QByteArray headers{};
        /// The answer begins, and never ends.
        bool endless = false;
    };
    struct Request {
        /// Path and query as they were sent.
        std::string target{};
        std::string head{};
    };

    PageServer();

    /// "http://localhost:12345" with @p target behind it.
    std::string address(const std::string& target) const;
    void serve(const std::string& path, Answer answer) { m_answers[path] = std::move(answer); }
    /// A page with this in its body.
    void servePage(const std::string& path, const QByteArray& body);

    const std::vector<Request>& requests() const { return m_requests; }
    int timesAsked(const std::string& target) const;
    bool wasAsked(const std::string& target) const { return timesAsked(target) > 0; }
    /// Whether a page has told @p what: the function told('...') of a page that was served by servePage.
    bool wasTold(const std::string& what) const { return wasAsked("/told?" + what); }
    int openConnections() const { return m_open; }

  private:
    void take(QTcpSocket& socket);
    void answer(QTcpSocket& socket, const QByteArray& head);

    std::map<std::string, Answer> m_answers{};
    std::vector<Request> m_requests{};
    std::map<QTcpSocket*, QByteArray> m_heads{};
    int m_open = 0;
    // The last, since it goes first: the connections that end with it are still counted above.
    QTcpServer m_server{};
};

} // namespace quillora::tests
