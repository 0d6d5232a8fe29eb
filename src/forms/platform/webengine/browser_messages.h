#pragma once

#include <QByteArray>
#include <QDataStream>
#include <QIODevice>

#include <optional>

/// The conversation between the recorder and the process of a browser, over the two pipes that the process
/// was started with. A message is its length (32 bits) and that many bytes: its kind, then its fields as
/// QDataStream writes them.
namespace quillora::forms::webengine {

/// From the recorder.
enum class Order : quint8 {
    navigate, // QString address
    back,     //
    forward,  //
    stop,     //
    reload,   //
    silent,   // bool
    zoom,     // quint32 request, QString zoom
    resize,   // QSize
    shown,    // bool
    mouse,    // qint32 type, QPointF position, QPointF onScreen, qint32 button, buttons, modifiers
    wheel,    // QPointF position, QPointF onScreen, QPoint pixels, QPoint angle, qint32 buttons, modifiers,
              // phase
    key,      // qint32 type, key, modifiers, QString text, bool repeated, quint32 scanCode, virtualKey
    inputMethod,  // QString preedit, QString committed
    focus,        // bool gained, qint32 reason
    leave,        //
    newWindow,    // quint32 question, bool cancel
    pictureTaken, //
};

/// To the recorder.
enum class Report : quint8 {
    picture,     // QSize in pixels of the screen: it lies in the shared picture, and stays until it is taken
    pointer,     // qint32 shape
    newWindow,   // quint32 question: the process waits for its answer
    zoomed,      // quint32 request, bool applied
    focusPassed, // bool forwards
    pageStarted, //
    pageStopped, //
};

/// One message, ready to be written.
template <typename Kind, typename... Fields>
QByteArray message(Kind kind, const Fields&... fields)
{
    QByteArray bytes;
    QDataStream out(&bytes, QIODevice::WriteOnly);
    out << quint32(0) << static_cast<quint8>(kind);
    (void(out << fields), ...);
    out.device()->seek(0);
    out << quint32(bytes.size() - qsizetype(sizeof(quint32)));
    return bytes;
}

/// Cuts what a pipe delivers into messages.
class MessageReader {
  public:
    /// A message of more than @p longest bytes is not one.
    explicit MessageReader(quint32 longest) : m_longest(longest) {}

    void append(const QByteArray& bytes) { m_bytes += bytes; }
    /// The next whole message, without its length. Throws std::runtime_error at one that is too long or
    /// empty; nothing that comes after it can be read.
    std::optional<QByteArray> next();

  private:
    quint32 m_longest;
    QByteArray m_bytes{};
};

/// The picture of the page, in memory that both processes see.
inline constexpr qsizetype kPictureCapacity = qsizetype(3840) * 2160 * 4;
/// Whether a picture of this size, at four bytes a pixel, fits.
bool fitsThePicture(QSize size);

} // namespace quillora::forms::webengine
