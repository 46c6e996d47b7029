#include "CTSubtitleExtractor.h"

#include "CTFileHelper.h"
#include "LibAv.h"
#include "Log.h"
#include "MainQueue.h"
#include "Prompter.h"
#include "TimedTextSamples.h"
#include "VHVideoText.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QHash>
#include <QRegularExpression>

#include <cmath>
#include <cstring>

using namespace Qt::StringLiterals;

CTSubtitleExtractorDelegate::~CTSubtitleExtractorDelegate() = default;

namespace {
// Subtitles that are pictures, not text: nothing to extract into a SubRip file.
bool isPictureSubtitle(const QString &codec)
{
    return codec == u"hdmv_pgs_subtitle"_s || codec == u"dvd_subtitle"_s || codec == u"dvb_subtitle"_s ||
           codec == u"xsub"_s || codec == u"dvb_teletext"_s;
}

// The text of a SubStationAlpha event as Matroska and MP4 store it ("ReadOrder, Layer,
// Style, Name, MarginL, MarginR, MarginV, Effect, Text"), or of a whole Dialogue line: the
// Text field without override codes, with its line breaks as line breaks.
QString subStationAlphaText(const QByteArray &data)
{
    QString line = QString::fromUtf8(data).trimmed();
    if (line.startsWith(u"Dialogue:"_s))
        line = line.mid(9);
    qsizetype at = 0;
    for (int commas = 0; commas < 8 && at >= 0; ++commas) {
        at = line.indexOf(u',', at);
        if (at >= 0)
            ++at;
    }
    QString text = at >= 0 ? line.mid(at) : line;
    static const QRegularExpression overrides(u"\\{[^}]*\\}"_s);
    text.remove(overrides);
    text.replace(u"\\N"_s, u"\n"_s).replace(u"\\n"_s, u"\n"_s).replace(u"\\h"_s, u" "_s);
    return text.trimmed();
}

// A time that can be written and read back: not negative, and far below what the time text
// can hold (a damaged index gives times of hundreds of millions of hours).
constexpr double MaxTime = 100'000.0 * 3600.0;
bool possibleTime(double seconds)
{
    return std::isfinite(seconds) && seconds >= 0 && seconds <= MaxTime;
}
} // namespace

std::shared_ptr<CTSubtitleExtractor>
CTSubtitleExtractor::initWithAsset(std::shared_ptr<const MovieAsset> asset, const QString &path,
                                   const ProgressStatusPtr &status)
{
    std::shared_ptr<CTSubtitleExtractor> extractor(new CTSubtitleExtractor);
    extractor->m_asset = std::move(asset);
    extractor->m_moviePath = path;
    extractor->m_status = status;
    return extractor;
}

CTSubtitleExtractor::~CTSubtitleExtractor()
{
    m_pool.waitForDone();
}

void CTSubtitleExtractor::extractSubtitles(bool subtitles, bool chapterMarks, bool onlyMissing)
{
    struct Plan
    {
        int trackID;
        QString path;
        bool isSubtitle;
    };
    QList<Plan> plans;
    m_queuedPaths.clear();
    if (!m_running)
        m_damaged = 0;
    const QString base = CTFileHelper::stringByDeletingPathExtension(m_moviePath);
    if (!m_running && m_asset) {
        if (subtitles) {
            QHash<QString, int> counters;
            for (const MovieTrack &track : m_asset->tracks()) {
                if (track.kind != MovieTrack::Kind::Subtitle)
                    continue;
                if (isPictureSubtitle(track.codecName)) {
                    logLine(u"Info: Movie-Track: %1 holds picture subtitles (%2), which cannot be "
                            "extracted as text"_s.arg(track.trackID)
                                .arg(track.codecName));
                    continue;
                }
                QString language = track.languageCode;
                // An extended language tag names the language more precisely ("pt-BR" is
                // the locale pt_BR, where the track's code says only "por").
                if (!track.extendedLanguageTag.isEmpty()) {
                    language = track.extendedLanguageTag;
                    language.replace(u'-', u'_');
                } else if (!language.isEmpty()) {
                    const QString locale = CTFileHelper::localeForLanguageCode(language);
                    if (!locale.isEmpty())
                        language = locale;
                }
                QString extension;
                if (!language.isEmpty()) {
                    const int n = counters.value(language, 0);
                    extension =
                        n == 0 ? language + u".srt"_s : u"%1-%2.srt"_s.arg(language, QString::number(n));
                    counters[language] = n + 1;
                } else {
                    extension = u"srt"_s;
                }
                plans.append({track.trackID, base + u'.' + extension, true});
            }
        }
        if (chapterMarks) {
            bool hasTextTrack = false;
            for (const MovieTrack &track : m_asset->tracks()) {
                if (track.kind != MovieTrack::Kind::Text)
                    continue;
                hasTextTrack = true;
                plans.append({track.trackID, base + u".vtt"_s, false});
            }
            // A container's chapter list without a chapter track (Matroska).
            if (!hasTextTrack && !m_asset->chapters().isEmpty())
                plans.append({0, base + u".vtt"_s, false});
        }
    }
    for (Plan &plan : plans) {
        if (QFileInfo::exists(plan.path)) {
            if (onlyMissing)
                continue;
            Prompt prompt;
            prompt.message = QCoreApplication::translate("CTSubtitleExtractor",
                                                         "A subtitle with the name '%1' already exists")
                                 .arg(CTFileHelper::lastPathComponent(plan.path));
            prompt.buttons = {QCoreApplication::translate("CTSubtitleExtractor", "Overwrite"),
                              QCoreApplication::translate("CTSubtitleExtractor", "Keep Both"),
                              QCoreApplication::translate("CTSubtitleExtractor", "Skip")};
            const int answer = Prompter::shared().ask(prompt).button;
            if (answer == 1) {
                const QString name = CTFileHelper::lastPathComponent(plan.path);
                const QString extension = name.mid(CTFileHelper::lastPathComponent(base).size() + 1);
                plan.path = CTFileHelper::pathWithBase(base, extension, QString());
            } else if (answer != 0) {
                continue;
            }
        }
        queue(plan.trackID, plan.path, plan.isSubtitle);
    }
    // Nothing queued now (also a request while earlier jobs still run): finished at once.
    if (m_queuedPaths.isEmpty() && m_delegate)
        m_delegate->subtitleExtractorFinished(this);
}

void CTSubtitleExtractor::queue(int trackID, const QString &path, bool isSubtitle)
{
    ++m_pending;
    m_running = true;
    m_queuedPaths.append(path);
    const QString moviePath = m_moviePath;
    std::weak_ptr<CTSubtitleExtractor> weak = weak_from_this();
    m_pool.start([this, weak, moviePath, trackID, path, isSubtitle] {
        bool damaged = false;
        if (!extractTextTrack(moviePath, trackID, path, isSubtitle, &damaged) || damaged)
            ++m_damaged;
        operationEnded();
    });
}

void CTSubtitleExtractor::operationEnded()
{
    if (--m_pending != 0)
        return;
    std::weak_ptr<CTSubtitleExtractor> weak = weak_from_this();
    MainQueue::main().post([weak] {
        auto self = weak.lock();
        if (!self || self->m_pending != 0)
            return;
        self->m_running = false;
        if (self->m_delegate)
            self->m_delegate->subtitleExtractorFinished(self.get());
    });
}

bool CTSubtitleExtractor::extractTextTrack(const QString &moviePath, int trackID, const QString &path,
                                           bool isSubtitle, bool *damaged)
{
    if (path.isEmpty())
        return false;
    SubtitleList cues;
    QStringList damage;
    int dropped = 0;
    LibAv::ReadErrors readErrors;
    // Text tracks need nothing beyond the header to be read packet by packet.
    QString openError;
    LibAv::Input input = LibAv::openInput(moviePath, &openError, false);
    if (!input)
        damage.append(openError);
    if (input) {
        AVFormatContext *in = input.get();
        int index = -1;
        for (unsigned i = 0; i < in->nb_streams; ++i) {
            AVStream *stream = in->streams[i];
            const bool match = trackID != 0 && LibAv::trackIDOf(stream) == trackID;
            stream->discard = match ? AVDISCARD_DEFAULT : AVDISCARD_ALL;
            if (match)
                index = int(i);
        }
        const AVCodecID codec = index >= 0 ? in->streams[index]->codecpar->codec_id : AV_CODEC_ID_NONE;
        const bool plainText = codec == AV_CODEC_ID_SUBRIP || codec == AV_CODEC_ID_TEXT;
        const bool subStationAlpha = codec == AV_CODEC_ID_ASS || codec == AV_CODEC_ID_SSA;
        // Reading the chapter list at opening leaves the chapter track past its first
        // sample; start it over.
        if (index >= 0 && LibAv::kindOf(in->streams[index]) == MovieTrack::Kind::Text)
            av_seek_frame(in, index, 0, AVSEEK_FLAG_BACKWARD);
        AVPacket *packet = av_packet_alloc();
        int result = 0;
        int64_t packetsRead = 0;
        while (index >= 0 && packet && (result = av_read_frame(in, packet)) >= 0) {
            if (packet->stream_index == index) {
                ++packetsRead;
                const AVRational timeBase = in->streams[index]->time_base;
                const int64_t time = packet->pts != AV_NOPTS_VALUE ? packet->pts : packet->dts;
                // Divided rather than multiplied by the inverse, so that 2340/600 gives 3.9.
                const double start = double(time) * timeBase.num / timeBase.den;
                const double end = double(time) * timeBase.num / timeBase.den +
                                   double(packet->duration) * timeBase.num / timeBase.den;
                const double duration = end - start;
                // A sample without a time, or with one no file could hold, is dropped.
                if (time == AV_NOPTS_VALUE || !possibleTime(start) || !possibleTime(end) || duration < 0) {
                    ++dropped;
                    av_packet_unref(packet);
                    continue;
                }
                const QByteArray data(reinterpret_cast<const char *>(packet->data), packet->size);
                std::optional<QString> text;
                if (plainText)
                    text = QString::fromUtf8(data);
                else if (subStationAlpha)
                    text = subStationAlphaText(data);
                else
                    text = stringFromSampleBuffer(data);
                const bool keep = (text && !text->isEmpty()) || (!isSubtitle && text && duration > 0);
                if (keep) {
                    if (isSubtitle)
                        cues.append(VHSubtitle::create(*text, start, end));
                    else
                        cues.append(VHVideoText::create(*text, start, end));
                }
            }
            av_packet_unref(packet);
        }
        av_packet_free(&packet);
        if (result < 0 && result != AVERROR_EOF)
            damage.append(LibAv::errorText(result));
        // A QuickTime-family movie indexes every sample: fewer than indexed means the file
        // was cut short.
        if (index >= 0 && std::strcmp(in->iformat->name, "mov,mp4,m4a,3gp,3g2,mj2") == 0 &&
            packetsRead < avformat_index_get_entries_count(in->streams[index]))
            damage.append(u"the track ends after %1 of its %2 samples"_s.arg(packetsRead)
                              .arg(avformat_index_get_entries_count(in->streams[index])));
        // The container's chapter list, when there is no chapter track to read.
        if (!isSubtitle && (index < 0 || cues.isEmpty())) {
            for (unsigned i = 0; i < in->nb_chapters; ++i) {
                const AVChapter *chapter = in->chapters[i];
                const AVDictionaryEntry *title = av_dict_get(chapter->metadata, "title", nullptr, 0);
                const double start = double(chapter->start) * av_q2d(chapter->time_base);
                const double end = double(chapter->end) * av_q2d(chapter->time_base);
                if (!possibleTime(start) || !possibleTime(end) || end < start) {
                    ++dropped;
                    continue;
                }
                cues.append(VHVideoText::create(title ? QString::fromUtf8(title->value) : QString(u""_s),
                                                start, end));
            }
        }
    }
    // A damaged movie gives what could be read, said out loud.
    damage.append(readErrors.messages());
    if (dropped > 0)
        damage.append(u"samples with impossible times were left out: %1"_s.arg(dropped));
    const QString track = trackID ? u"Movie-Track: %1"_s.arg(trackID) : u"the chapter list"_s;
    if (!damage.isEmpty())
        logLine(u"Warning: Reading %1 of %2 failed in part (%3); %4 holds what could be read"_s.arg(
            track, moviePath, damage.join(u"; "_s), path));
    if (damaged)
        *damaged = !damage.isEmpty();
    // Every planned track gets its file, an empty one when the track gave no text (picture
    // subtitles are never planned, so they leave no empty file behind).
    if (isSubtitle)
        return VHSubtitle::writeSubtitles(cues, path);
    return VHVideoText::writeVideoText(cues, path);
}

std::optional<QString> CTSubtitleExtractor::stringFromSampleBuffer(const QByteArray &sample)
{
    return TimedText::stringFromSampleBytes(sample);
}

int CTSubtitleExtractor::extractableSubtitles(const MovieAsset *asset)
{
    return asset ? asset->subtitleTrackCount() : 0;
}

bool CTSubtitleExtractor::extractableChapterMark(const MovieAsset *asset)
{
    return asset && asset->hasChapters();
}
