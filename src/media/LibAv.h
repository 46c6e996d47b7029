#pragma once

// Small helpers around the FFmpeg libraries, shared inside the media module.
extern "C" {
#include <libavcodec/avcodec.h>
#include <libavformat/avformat.h>
#include <libavutil/avutil.h>
}

#include "MovieAsset.h"

#include <QString>
#include <QStringList>

#include <memory>

namespace LibAv {

// Quiets the libraries' own console output down to errors, once per process.
void initialize();

// Collects the error messages the demuxers log on this thread while it lives (a damaged
// movie is often read on with only such a message: a broken Matroska cluster, a QuickTime
// track with broken sample tables). Only messages of format contexts count, not those of
// decoders.
class ReadErrors
{
public:
    ReadErrors();
    ~ReadErrors();
    ReadErrors(const ReadErrors &) = delete;
    ReadErrors &operator=(const ReadErrors &) = delete;
    // The messages so far, at most a few, without their line ends.
    const QStringList &messages() const { return m_messages; }
    int count() const { return m_count; }
    void add(const QString &message);

private:
    ReadErrors *m_outer;
    QStringList m_messages;
    int m_count = 0;
};

// The library's description of an error code.
QString errorText(int code);

struct InputCloser
{
    void operator()(AVFormatContext *context) const { avformat_close_input(&context); }
};
using Input = std::unique_ptr<AVFormatContext, InputCloser>;

// Opens a movie for reading and, with `probeStreams`, reads a little of its data to learn
// what the header does not say about its streams; null with `error` set when it cannot.
Input openInput(const QString &path, QString *error, bool probeStreams = true);

// The kind of a stream as the embedder and extractor treat it.
MovieTrack::Kind kindOf(const AVStream *stream);
int trackIDOf(const AVStream *stream);

// ISO 639-2 code of a locale identifier ("en" → "eng", "pt_BR" → "por"); empty when none.
QString iso639_2ForLocale(const QString &localeIdentifier);

// A locale's name in its own language ("de" → "Deutsch"); null when it names no locale.
QString nativeDisplayName(const QString &localeIdentifier);

} // namespace LibAv
