#pragma once

#include <QPointer>
#include <QWidget>

class QLabel;

// Where the movie plays: the player's own widget, kept at the movie's aspect ratio and
// centred, or the background picture while no movie is open.
class MoviePlaceholder final : public QWidget
{
public:
    explicit MoviePlaceholder(QWidget *parent = nullptr);

    // Shows a player's widget (null: none). The area does not own it.
    void setPlayerView(QWidget *view);
    QWidget *playerView() const { return m_playerView; }
    void setPlayerViewVisible(bool visible);
    bool isPlayerViewShown() const { return m_playerVisible; }
    void setBackgroundVisible(bool visible);
    // The text over the background picture.
    void setMessage(const QString &message);
    QString message() const;
    bool isBackgroundShown() const;
    void setAspectRatio(double ratio);
    double aspectRatio() const { return m_aspectRatio; }
    // The rectangle the picture takes inside the area.
    QRect pictureRect() const;

    QSize sizeHint() const override { return {640, 360}; }

protected:
    void resizeEvent(QResizeEvent *event) override;

private:
    void layoutChildren();

    QLabel *m_background;
    QPointer<QWidget> m_playerView;
    bool m_playerVisible = false;
    double m_aspectRatio = 16.0 / 9.0;
};
