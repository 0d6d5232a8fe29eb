#pragma once

#include <QByteArray>
#include <QImage>

namespace quillora::forms {

/// The picture that was decoded last, and what it was stretched to. A change of the stage loads the slide
/// again that stands there, some changes twice; a file with the same bytes in it is not decoded or stretched
/// anew.
class LastPicture {
  public:
    /// The picture in @p file, as decodePicture() gives it. Throws what that throws, and keeps what it had.
    QImage decode(const QByteArray& file);
    /// @p picture in @p size pixels, with no regard to its ratio.
    QImage stretch(const QImage& picture, QSize size);

  private:
    QByteArray m_file;
    QImage m_decoded;
    QImage m_stretched;
};

} // namespace quillora::forms
