#pragma once

#include <QLabel>

#include <filesystem>
#include <memory>

class QMovie;

namespace quillora::forms {

/// The picture `countDown_trans`, which plays the countdown and then the sign that a recording runs. It lies
/// outside the stage, so it is never in the recording.
class CountdownPicture : public QLabel {
    Q_OBJECT

  public:
    explicit CountdownPicture(QWidget* parent);
    ~CountdownPicture() override;

    /// Plays @p picture from its start. A file that can't be played leaves the place empty.
    void setPicture(const std::filesystem::path& picture);

  protected:
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;

  private:
    std::unique_ptr<QMovie> m_movie;
};

} // namespace quillora::forms
