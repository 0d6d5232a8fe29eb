#pragma once

#include <QImage>
#include <QRasterWindow>
#include <QVideoFrame>

/// Shows the latest frame of a video inside a window of another process, as large as its shape lets it, on
/// black. The presenter's clicks and keys go to the window around it.
class VideoWindow : public QRasterWindow {
    Q_OBJECT

  public:
    explicit VideoWindow(WId host);

    void showFrame(const QVideoFrame& frame);
    void clear();

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    QImage m_picture{};
};
