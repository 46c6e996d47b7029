// The embedder's sample sources fed any file: a subtitle file (CTSubtitleReader) or a
// chapter-marks file (CTTextReader), at a frame rate and movie duration taken from the first
// bytes. Besides "no crash": sample times are never negative and never go back, each sample
// starts where the previous one ended or later, and each payload's length field agrees with
// its size (tx3g: L+2, or L+10 with a "frcd" box; QuickTime text: L+14 ending in an "encd"
// box).
#include "CTSubtitleReader.h"
#include "FuzzSupport.h"

#include <QFile>
#include <QtEndian>

#include <unistd.h>

namespace {
void checkSamples(CTSubtitleReader &reader, bool chapters)
{
    qint64 lastEnd = 0;
    bool first = true;
    while (std::optional<TextSample> sample = reader.copyNextSampleBuffer()) {
        FUZZ_CHECK(sample->start >= 0);
        FUZZ_CHECK(sample->duration >= 0);
        // Neighbours meet or leave a gap; one unit of 1/600 s is rounding.
        FUZZ_CHECK(first || sample->start >= lastEnd - 1);
        first = false;
        lastEnd = sample->start + sample->duration;
        const QByteArray &payload = sample->payload;
        FUZZ_CHECK(payload.size() >= 2);
        const qsizetype length = qFromBigEndian<quint16>(payload.constData());
        if (chapters) {
            FUZZ_CHECK(payload.size() == length + 14);
            FUZZ_CHECK(payload.mid(length + 6, 4) == "encd");
        } else {
            FUZZ_CHECK(payload.size() == length + 2 ||
                       (payload.size() == length + 10 && payload.endsWith("frcd")));
        }
    }
    FUZZ_CHECK(!reader.copyNextSampleBuffer());
    FUZZ_CHECK(!reader.nextSampleStart());
}
} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    static const bool quiet = [] {
        static LogCapture capture(true);
        return true;
    }();
    (void)quiet;
    if (size < 2)
        return 0;
    // The first byte picks the frame rate (0: none), the second the movie's duration.
    static const double rates[] = {0, 23.976, 25, 29.97, 50, 60, 0.5, 1000};
    const double fps = rates[data[0] % 8];
    const double duration = data[1] == 0 ? 0 : double(data[1]) * 30;
    const bool chapters = data[0] & 0x80;
    static const QString path = QStringLiteral("/tmp/captora-fuzz-%1.en.%2").arg(::getpid());
    const QString file = path.arg(chapters ? QStringLiteral("vtt") : QStringLiteral("srt"));
    QFile out(file);
    if (!out.open(QIODevice::WriteOnly | QIODevice::Truncate))
        return 0;
    out.write(reinterpret_cast<const char *>(data + 2), qint64(size - 2));
    out.close();
    if (chapters) {
        if (std::unique_ptr<CTTextReader> reader = CTTextReader::initForFile(file, fps, duration))
            checkSamples(*reader, true);
    } else if (std::unique_ptr<CTSubtitleReader> reader =
                   CTSubtitleReader::initForFile(file, fps, duration)) {
        checkSamples(*reader, false);
    }
    return 0;
}
