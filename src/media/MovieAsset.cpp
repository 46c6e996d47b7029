#include "MovieAsset.h"

#include "FileNames.h"
#include "LibAv.h"
#include "LocaleNames.h"
#include "MovieBoxes.h"

extern "C" {
#include <libavutil/dict.h>
}

#include <QFile>

#include <unicode/uloc.h>

#include <cstdarg>
#include <cstring>
#include <mutex>

using namespace Qt::StringLiterals;

namespace LibAv {

namespace {
thread_local ReadErrors *t_readErrors = nullptr;

void logCallback(void *context, int level, const char *format, va_list arguments)
{
    if (t_readErrors && context && level <= AV_LOG_ERROR) {
        const AVClass *avClass = *static_cast<const AVClass *const *>(context);
        if (avClass && std::strcmp(avClass->class_name, "AVFormatContext") == 0) {
            va_list copy;
            va_copy(copy, arguments);
            char line[1024];
            int prefix = 0; // without "[demuxer @ address]"
            av_log_format_line2(context, level, format, copy, line, sizeof line, &prefix);
            va_end(copy);
            t_readErrors->add(QString::fromUtf8(line).trimmed());
        }
    }
    av_log_default_callback(context, level, format, arguments);
}
} // namespace

ReadErrors::ReadErrors()
    : m_outer(t_readErrors)
{
    initialize();
    t_readErrors = this;
}

ReadErrors::~ReadErrors()
{
    t_readErrors = m_outer;
}

void ReadErrors::add(const QString &message)
{
    ++m_count;
    if (m_messages.size() < 3 && !m_messages.contains(message))
        m_messages.append(message);
}

void initialize()
{
    static std::once_flag once;
    // Our own messages say what failed; the libraries' lines (CAPTORA_FFMPEG_LOG=1 brings
    // them back) would only repeat it in their words.
    std::call_once(once, [] {
        av_log_set_level(qEnvironmentVariableIsSet("CAPTORA_FFMPEG_LOG") ? AV_LOG_ERROR : AV_LOG_FATAL);
        av_log_set_callback(&logCallback);
    });
}

QString errorText(int code)
{
    char buffer[AV_ERROR_MAX_STRING_SIZE] = {};
    av_strerror(code, buffer, sizeof buffer);
    return QString::fromUtf8(buffer);
}

Input openInput(const QString &path, QString *error, bool probeStreams)
{
    initialize();
    AVFormatContext *context = nullptr;
    // The names' own bytes, also where they are not UTF-8 (FileNames.h).
    const QByteArray name = encodeFileName(path);
    int result = avformat_open_input(&context, name.constData(), nullptr, nullptr);
    if (result < 0) {
        if (error)
            *error = errorText(result);
        return nullptr;
    }
    Input input(context);
    if (!probeStreams)
        return input;
    result = avformat_find_stream_info(context, nullptr);
    if (result < 0) {
        if (error)
            *error = errorText(result);
        return nullptr;
    }
    return input;
}

MovieTrack::Kind kindOf(const AVStream *stream)
{
    const AVCodecParameters *par = stream->codecpar;
    if (par->codec_tag == MKTAG('t', 'e', 'x', 't'))
        return MovieTrack::Kind::Text;
    switch (par->codec_type) {
    case AVMEDIA_TYPE_VIDEO:
        return (stream->disposition & AV_DISPOSITION_ATTACHED_PIC) ? MovieTrack::Kind::Other
                                                                   : MovieTrack::Kind::Video;
    case AVMEDIA_TYPE_AUDIO:
        return MovieTrack::Kind::Audio;
    case AVMEDIA_TYPE_SUBTITLE:
        return MovieTrack::Kind::Subtitle;
    default:
        return MovieTrack::Kind::Other;
    }
}

int trackIDOf(const AVStream *stream)
{
    return stream->id > 0 ? stream->id : stream->index + 1;
}

QString iso639_2ForLocale(const QString &localeIdentifier)
{
    if (localeIdentifier.isEmpty())
        return {};
    const QByteArray id = localeIdentifier.toUtf8();
    const char *code = uloc_getISO3Language(id.constData());
    return code ? QString::fromLatin1(code) : QString();
}

QString nativeDisplayName(const QString &localeIdentifier)
{
    return LocaleNames::nativeDisplayName(localeIdentifier);
}

} // namespace LibAv

std::shared_ptr<const MovieAsset> MovieAsset::open(const QString &path, QString *error)
{
    // A QuickTime-family header already says everything asked here; other containers
    // (Matroska, AVI) may need a look at the first packets for frame rates and sizes.
    LibAv::Input input = LibAv::openInput(path, error, false);
    if (!input)
        return nullptr;
    if (std::strcmp(input->iformat->name, "mov,mp4,m4a,3gp,3g2,mj2") != 0) {
        const int result = avformat_find_stream_info(input.get(), nullptr);
        if (result < 0) {
            if (error)
                *error = LibAv::errorText(result);
            return nullptr;
        }
    }
    auto asset = std::make_shared<MovieAsset>();
    asset->m_path = path;
    const AVFormatContext *context = input.get();
    if (context->duration > 0)
        asset->m_duration = double(context->duration) / AV_TIME_BASE;
    // The muxer's demuxer does not read the extended language tags ('elng'); our own box
    // reader does.
    QMap<int, QString> languageTags;
    if (std::strcmp(context->iformat->name, "mov,mp4,m4a,3gp,3g2,mj2") == 0)
        languageTags = MovieBoxes::extendedLanguageTags(path);
    for (unsigned i = 0; i < context->nb_streams; ++i) {
        const AVStream *stream = context->streams[i];
        MovieTrack track;
        track.index = int(i);
        track.trackID = LibAv::trackIDOf(stream);
        track.kind = LibAv::kindOf(stream);
        if (const AVDictionaryEntry *language = av_dict_get(stream->metadata, "language", nullptr, 0)) {
            const QString code = QString::fromUtf8(language->value);
            if (code != u"und"_s)
                track.languageCode = code;
        }
        track.extendedLanguageTag = languageTags.value(track.trackID);
        track.codecName = QString::fromLatin1(avcodec_get_name(stream->codecpar->codec_id));
        track.enabled = stream->disposition & AV_DISPOSITION_DEFAULT;
        track.width = stream->codecpar->width;
        track.height = stream->codecpar->height;
        if (track.kind == MovieTrack::Kind::Video && asset->m_fps == 0) {
            const AVRational rate =
                stream->avg_frame_rate.num > 0 ? stream->avg_frame_rate : stream->r_frame_rate;
            if (rate.num > 0 && rate.den > 0)
                asset->m_fps = av_q2d(rate);
        }
        asset->m_tracks.append(track);
    }
    for (unsigned i = 0; i < context->nb_chapters; ++i) {
        const AVChapter *chapter = context->chapters[i];
        MovieChapter mark;
        mark.start = double(chapter->start) * av_q2d(chapter->time_base);
        mark.end = double(chapter->end) * av_q2d(chapter->time_base);
        if (const AVDictionaryEntry *title = av_dict_get(chapter->metadata, "title", nullptr, 0))
            mark.title = QString::fromUtf8(title->value);
        asset->m_chapters.append(mark);
    }
    return asset;
}

const MovieTrack *MovieAsset::trackWithID(int trackID) const
{
    for (const MovieTrack &track : m_tracks) {
        if (track.trackID == trackID)
            return &track;
    }
    return nullptr;
}

int MovieAsset::subtitleTrackCount() const
{
    int count = 0;
    for (const MovieTrack &track : m_tracks)
        count += track.kind == MovieTrack::Kind::Subtitle;
    return count;
}

bool MovieAsset::hasTextTrack() const
{
    for (const MovieTrack &track : m_tracks) {
        if (track.kind == MovieTrack::Kind::Text)
            return true;
    }
    return false;
}
