#include "PlaybackTestSupport.h"

#include "VideoSurface.h"

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QProcess>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

TempDir &movieFolder()
{
    static TempDir folder;
    return folder;
}

} // namespace

QString testMovie()
{
    static QString path;
    if (!path.isEmpty())
        return path;
    const QString target = movieFolder().path(u"testsrc-6s.mp4"_s);
    QProcess ffmpeg;
    ffmpeg.start(
        u"ffmpeg"_s,
        {u"-hide_banner"_s, u"-loglevel"_s, u"error"_s,     u"-y"_s,
         u"-f"_s,           u"lavfi"_s,     u"-i"_s,        u"testsrc=size=320x240:rate=25:decimals=2"_s,
         u"-f"_s,           u"lavfi"_s,     u"-i"_s,        u"sine=frequency=440:sample_rate=48000"_s,
         u"-t"_s,           u"6"_s,         u"-c:v"_s,      u"libx264"_s,
         u"-preset"_s,      u"ultrafast"_s, u"-pix_fmt"_s,  u"yuv420p"_s,
         u"-c:a"_s,         u"aac"_s,       u"-shortest"_s, target});
    if (!ffmpeg.waitForFinished(60000) || ffmpeg.exitCode() != 0) {
        ADD_FAILURE() << "ffmpeg could not make the test movie: "
                      << ffmpeg.readAllStandardError().toStdString();
        return {};
    }
    path = target;
    return path;
}

QString brokenMovie()
{
    QByteArray noise;
    for (int i = 0; i < 4096; ++i)
        noise.append(char((i * 7919 + 13) % 251));
    return movieFolder().write(u"broken.mp4"_s, noise);
}

bool waitFor(const std::function<bool()> &condition, int timeoutMs)
{
    QDeadlineTimer deadline(timeoutMs);
    while (!condition()) {
        if (deadline.hasExpired())
            return false;
        QCoreApplication::processEvents(QEventLoop::AllEvents, 20);
    }
    return true;
}

int whitePixels(const QImage &image, const QRect &area)
{
    int count = 0;
    const QRect bounded = area.intersected(image.rect());
    for (int y = bounded.top(); y <= bounded.bottom(); ++y) {
        for (int x = bounded.left(); x <= bounded.right(); ++x) {
            const QRgb pixel = image.pixel(x, y);
            if (qRed(pixel) > 200 && qGreen(pixel) > 200 && qBlue(pixel) > 200)
                ++count;
        }
    }
    return count;
}

QImage referenceFrame(double seconds)
{
    const QString path = movieFolder().path(u"reference-%1.png"_s.arg(seconds, 0, 'f', 2));
    QProcess ffmpeg;
    ffmpeg.start(u"ffmpeg"_s,
                 {u"-hide_banner"_s, u"-loglevel"_s, u"error"_s, u"-y"_s, u"-ss"_s,
                  QString::number(seconds, 'f', 3), u"-i"_s, testMovie(), u"-frames:v"_s, u"1"_s, path});
    if (!ffmpeg.waitForFinished(60000) || ffmpeg.exitCode() != 0)
        ADD_FAILURE() << "ffmpeg could not extract a frame: " << ffmpeg.readAllStandardError().toStdString();
    return QImage(path).convertToFormat(QImage::Format_RGB32);
}

double frameDistance(const QImage &picture, const QRect &pictureRect, const QImage &reference,
                     const QRect &excluded)
{
    const QImage scaled =
        reference.scaled(pictureRect.size(), Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    qint64 sum = 0;
    qint64 count = 0;
    for (int y = 0; y < pictureRect.height(); ++y) {
        for (int x = 0; x < pictureRect.width(); ++x) {
            const QPoint at = pictureRect.topLeft() + QPoint(x, y);
            if (excluded.contains(at) || !picture.rect().contains(at))
                continue;
            const QRgb a = picture.pixel(at);
            const QRgb b = scaled.pixel(x, y);
            sum +=
                std::abs(qRed(a) - qRed(b)) + std::abs(qGreen(a) - qGreen(b)) + std::abs(qBlue(a) - qBlue(b));
            count += 3;
        }
    }
    return count ? double(sum) / double(count) : 255.0;
}

const QList<QImage> &movieFrames()
{
    static const QList<QImage> frames = [] {
        QList<QImage> decoded;
        QProcess ffmpeg;
        ffmpeg.start(u"ffmpeg"_s, {u"-hide_banner"_s, u"-loglevel"_s, u"error"_s, u"-i"_s, testMovie(),
                                   u"-f"_s, u"rawvideo"_s, u"-pix_fmt"_s, u"rgb24"_s, u"-"_s});
        ffmpeg.waitForFinished(60000);
        const QByteArray bytes = ffmpeg.readAllStandardOutput();
        constexpr qsizetype FrameBytes = 320 * 240 * 3;
        for (qsizetype at = 0; at + FrameBytes <= bytes.size(); at += FrameBytes)
            decoded << QImage(reinterpret_cast<const uchar *>(bytes.constData() + at), 320, 240, 320 * 3,
                              QImage::Format_RGB888)
                           .convertToFormat(QImage::Format_RGB32);
        return decoded;
    }();
    return frames;
}

int shownFrame(const QImage &picture, int from, int to)
{
    const QList<QImage> &frames = movieFrames();
    const QRect pictureRect = ImageVideoSurface::frameRect({320, 240}, QRect(QPoint(), picture.size()));
    int best = -1;
    double bestDistance = 255;
    for (int index = std::max(0, from); index <= std::min<int>(to, int(frames.size()) - 1); ++index) {
        const double distance = frameDistance(picture, pictureRect, frames[index], QRect());
        if (distance < bestDistance) {
            best = index;
            bestDistance = distance;
        }
    }
    EXPECT_LT(bestDistance, 12.0) << "the picture is none of the frames " << from << ".." << to;
    return best;
}
