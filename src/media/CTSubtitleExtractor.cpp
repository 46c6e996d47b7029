#include "CTSubtitleExtractor.h"

#include "CTFileHelper.h"
#include "LibAv.h"
#include "MainQueue.h"
#include "Prompter.h"
#include "TimedTextSamples.h"
#include "VHVideoText.h"

#include <QFileInfo>
#include <QHash>

using namespace Qt::StringLiterals;

CTSubtitleExtractorDelegate::~CTSubtitleExtractorDelegate() = default;

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
    const QString base = CTFileHelper::stringByDeletingPathExtension(m_moviePath);
    if (!m_running && m_asset) {
        if (subtitles) {
            QHash<QString, int> counters;
            for (const MovieTrack &track : m_asset->tracks()) {
                if (track.kind != MovieTrack::Kind::Subtitle)
                    continue;
                QString language = track.languageCode;
                if (!language.isEmpty()) {
                    const QString locale = CTFileHelper::localeForLanguageCode(language);
                    if (!locale.isEmpty())
                        language = locale;
                }
                QString extension;
                if (!language.isEmpty()) {
                    const int n = counters.value(language, 0);
                    extension = n == 0 ? language + u".srt"_s : u"%1-%2.srt"_s.arg(language).arg(n);
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
            prompt.message = u"A subtitle with the name '%1' already exists"_s.arg(
                CTFileHelper::lastPathComponent(plan.path));
            prompt.buttons = {u"Overwrite"_s, u"Keep Both"_s, u"Skip"_s};
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
        extractTextTrack(moviePath, trackID, path, isSubtitle);
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
                                           bool isSubtitle)
{
    if (path.isEmpty())
        return false;
    SubtitleList cues;
    // Text tracks need nothing beyond the header to be read packet by packet.
    LibAv::Input input = LibAv::openInput(moviePath, nullptr, false);
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
        const bool plainText = index >= 0 && (in->streams[index]->codecpar->codec_id == AV_CODEC_ID_SUBRIP ||
                                              in->streams[index]->codecpar->codec_id == AV_CODEC_ID_TEXT);
        // Reading the chapter list at opening leaves the chapter track past its first
        // sample; start it over.
        if (index >= 0 && LibAv::kindOf(in->streams[index]) == MovieTrack::Kind::Text)
            av_seek_frame(in, index, 0, AVSEEK_FLAG_BACKWARD);
        AVPacket *packet = av_packet_alloc();
        while (index >= 0 && packet && av_read_frame(in, packet) >= 0) {
            if (packet->stream_index == index) {
                const AVRational timeBase = in->streams[index]->time_base;
                const int64_t time = packet->pts != AV_NOPTS_VALUE ? packet->pts : packet->dts;
                // Divided rather than multiplied by the inverse, so that 2340/600 gives 3.9.
                const int64_t startUnits = time == AV_NOPTS_VALUE ? 0 : time;
                const double start = double(startUnits) * timeBase.num / timeBase.den;
                const double end = double(startUnits + packet->duration) * timeBase.num / timeBase.den;
                const double duration = end - start;
                const QByteArray data(reinterpret_cast<const char *>(packet->data), packet->size);
                std::optional<QString> text;
                if (plainText)
                    text = QString::fromUtf8(data);
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
        // The container's chapter list, when there is no chapter track to read.
        if (!isSubtitle && (index < 0 || cues.isEmpty())) {
            for (unsigned i = 0; i < in->nb_chapters; ++i) {
                const AVChapter *chapter = in->chapters[i];
                const AVDictionaryEntry *title = av_dict_get(chapter->metadata, "title", nullptr, 0);
                const double start = double(chapter->start) * av_q2d(chapter->time_base);
                const double end = double(chapter->end) * av_q2d(chapter->time_base);
                cues.append(VHVideoText::create(title ? QString::fromUtf8(title->value) : QString(u""_s),
                                                start, end));
            }
        }
    }
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
