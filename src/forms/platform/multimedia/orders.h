#pragma once

#include <QByteArray>
#include <QObject>
#include <QSocketNotifier>

/// The orders that come in on the standard input, a line each. Ends the program when there is nobody any more
/// to give them.
class Orders : public QObject {
    Q_OBJECT

  public:
    Orders();

  signals:
    void given(const QByteArray& order, const QByteArray& value);

  private:
    void read();

    QSocketNotifier m_notifier;
    QByteArray m_unread{};
};
