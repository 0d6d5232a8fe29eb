#pragma once

#include <QWidget>

namespace quillora::forms {

/// A window onto a body that is as high as the part of it that is open, from 0 to 1; the body itself always
/// has its whole height and is not squeezed. It follows when the body wants another height.
class Shutter : public QWidget {
    Q_OBJECT

  public:
    /// Takes @p body.
    Shutter(QWidget* body, QWidget* parent);

    void setOpening(double part);
    double opening() const { return m_opening; }

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return {0, sizeHint().height()}; }

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

  private:
    int bodyHeight() const;
    void placeBody();

    QWidget* m_body;
    double m_opening = 1;
};

} // namespace quillora::forms
