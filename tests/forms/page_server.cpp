#include "tests/forms/page_server.h"

#include <QHostAddress>
#include <QTcpSocket>

#include <algorithm>
#include <stdexcept>

namespace quillora::tests {

PageServer::PageServer()
{
    if (!m_server.listen(QHostAddress::LocalHost))
        throw std::runtime_error("no port for the pages of the test");
    connect(&m_server, &QTcpServer::newConnection, this, [this] {
        while (QTcpSocket* socket = m_server.nextPendingConnection()) {
            ++m_open;
            connect(socket, &QTcpSocket::readyRead, this, [this, socket] { take(*socket); });
            connect(socket, &QTcpSocket::disconnected, this, [this, socket] {
                --m_open;
                m_heads.erase(socket);
                socket->deleteLater();
            });
        }
    });
}

std::string PageServer::address(const std::string& target) const
{
    return "http://localhost:" + std::to_string(m_server.serverPort()) + target;
}

void PageServer::servePage(const std::string& path, const QByteArray& body)
{
    serve(path, {.body = "<!doctype html><html><head><script>"
                         "function told(what) { fetch('/told?' + what, {mode: 'no-cors'}).catch(() => {}); }"
                         "</script><style>body { margin: 0; background: #f0f8ff }</style></head><body>" +
                         body + "</body></html>"});
}

int PageServer::timesAsked(const std::string& target) const
{
    return int(std::ranges::count(m_requests, target, &Request::target));
}

void PageServer::take(QTcpSocket& socket)
{
    QByteArray& head = m_heads[&socket];
    head += socket.readAll();
    // Further requests on a connection are not expected: each answer closes its own.
    if (head.contains("\r\n\r\n"))
        answer(socket, head);
}

void PageServer::answer(QTcpSocket& socket, const QByteArray& head)
{
    const QByteArray target = head.mid(head.indexOf(' ') + 1).split(' ').value(0);
    m_requests.push_back({target.toStdString(), head.toStdString()});
    const auto found = m_answers.find(target.split('?').value(0).toStdString());
    const Answer missing{.body = "no such page", .status = "404 Not Found"};
    const Answer& answer = found != m_answers.end() ? found->second : missing;
    socket.write("HTTP/1.1 " + answer.status + "\r\nContent-Type: " + answer.type +
                 "\r\nCache-Control: no-store\r\nConnection: close\r\n" + answer.headers + "\r\n" +
                 answer.body);
    if (!answer.endless)
        socket.disconnectFromHost();
}

} // namespace quillora::tests
