#pragma once

#include <QByteArray>
#include <QDataStream>

#include <memory>

class QEvent;
class QWidget;

/// What the presenter does on a browser surface, on its way to the page in the other process.
namespace quillora::forms::webengine {

enum class Order : quint8;

/// The order that tells of an event; empty for an event that no page needs.
QByteArray inputOrder(const QEvent& event);

/// Does to @p page, the widget that a page is in, what an order of the presenter's input tells. @p in stands
/// behind the order's kind. Orders of another kind, and incomplete ones, do nothing. @p view is the window
/// that the page lies in: it is put where the surface is on the screen, since menus open beside it.
void replayInput(Order order, QDataStream& in, QWidget& view, QWidget& page);

} // namespace quillora::forms::webengine
