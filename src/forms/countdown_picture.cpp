#include "forms/countdown_picture.h"

#include "forms/look.h"

#include <QFile>
#include <QMovie>

namespace quillora::forms {

CountdownPicture::CountdownPicture(QWidget* parent) : QLabel(parent)
{
    setObjectName("countDown_trans");
    setAccessibleName(tr("Countdown"));
    setGeometry(pixels({13920}), pixels({6930}), pixels({750}), pixels({750}));
    setAttribute(Qt::WA_TransparentForMouseEvents);
    hide();
}

CountdownPicture::~CountdownPicture() = default;

void CountdownPicture::setPicture(const std::filesystem::path& picture)
{
    auto movie = std::make_unique<QMovie>(QFile::decodeName(picture.c_str()));
    movie->setCacheMode(QMovie::CacheAll);
    clear();
    if (movie->isValid())
        setMovie(movie.get());
    m_movie = std::move(movie);
    m_movie->start();
    m_movie->setPaused(!isVisible());
}

void CountdownPicture::showEvent(QShowEvent* event)
{
    QLabel::showEvent(event);
    if (m_movie)
        m_movie->setPaused(false);
}

void CountdownPicture::hideEvent(QHideEvent* event)
{
    QLabel::hideEvent(event);
    if (m_movie)
        m_movie->setPaused(true);
}

} // namespace quillora::forms
