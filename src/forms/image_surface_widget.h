#pragma once

#include "deck/image_surface.h"
#include "forms/last_picture.h"

#include <QByteArray>
#include <QImage>
#include <QPen>
#include <QWidget>

#include <filesystem>
#include <optional>

namespace quillora::forms {

/// The picture surfaces of the window: `slide_img` on the stage and `slide_img_N`, the preview. The held
/// picture is what counts; the widget only shows it. On a display with a scale factor the picture is held in
/// the display's pixels, so that a slide is as sharp as the display can show it, while all sizes and
/// positions told to and by the surface stay pixels of the form.
class ImageSurfaceWidget : public QWidget, public deck::ImageSurface {
    Q_OBJECT

  public:
    enum class Display {
        /// One pixel of the picture on one of the form, from the top left corner. A stretched picture is on
        /// the screen
        /// when ResizeImage() returns.
        actualSize,
        /// The whole picture, in whatever room the widget has. A picture is decoded when the events that are
        /// waiting
        /// have been handled, so that the slide on the stage does not wait for the preview of the next one; a
        /// file
        /// that turns out to be damaged then leaves what was there.
        fitted,
    };

    ImageSurfaceWidget(Display display, QWidget* parent);

    void LoadFile(const std::filesystem::path& picture) override;
    void ResizeImage(int width, int height) override;
    void NewImage(int width, int height) override;
    void setPenColor(base::Colour colour) override;
    void setPenWidth(int pixels) override;
    /// On the stage the segment is on the screen when this returns, and nothing else was painted anew.
    void DrawSegment(int x1, int y1, int x2, int y2) override;

    /// The held picture; its device pixel ratio is that of the display once it was resized.
    const QImage& picture();

  signals:
    void pictureLoaded(const std::filesystem::path& picture);
    /// @p button: 1 left, 2 right, 4 middle. For a move, the sum of those held.
    void MouseDown(int button, int shift, float x, float y);
    void MouseMove(int button, int shift, float x, float y);
    void MouseUp(int button, int shift, float x, float y);

  protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

  private:
    struct Undecoded {
        QByteArray file;
        /// In pixels of the form; empty while nothing asked for another size.
        QSize stretchedTo;
    };

    QSize displayPixels(QSize formPixels) const;
    void stretch(QSize formPixels);
    void decodeLater(QByteArray file);
    void decodeNow();
    void pictureChanged();

    Display m_display;
    QImage m_picture;
    LastPicture m_last;
    std::optional<Undecoded> m_undecoded;
    /// Of Display::fitted: the picture in the widget's size, null until it is painted.
    QImage m_shown;
    QPen m_pen{Qt::black, 1, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin};
};

} // namespace quillora::forms
