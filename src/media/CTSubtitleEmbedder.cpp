#include "CTSubtitleEmbedder.h"

#include "CTFileHelper.h"
#include "CTLanguage.h"
#include "CTSubtitleReader.h"
#include "LibAv.h"
#include "Log.h"
#include "MainQueue.h"
#include "Prompter.h"
#include "TimedTextSamples.h"

extern "C" {
#include <libavutil/mathematics.h>
}

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <cerrno>
#include <climits>
#include <cstring>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <chrono>
#include <cmath>
#include <limits>
#include <vector>

using namespace Qt::StringLiterals;

namespace {
const QString kExternal = u"external"_s;
const QString kEmbedded = u"embedded"_s;
const QString kChapterMarks = u"Chapter Marks"_s;

double secondsNow()
{
    return std::chrono::duration<double>(std::chrono::steady_clock::now().time_since_epoch()).count();
}

// The output file as the muxer writes it: a descriptor of our own behind a 1 MB buffer.
// Opening it ourselves lets us create it exclusively, and keeps the truncate-and-rewrite
// pattern out, on which ext4 flushes the whole file to disk when it is closed.
struct OutputFile
{
    int fd = -1;

    static int write(void *opaque, uint8_t *buffer, int size)
    {
        const int fd = static_cast<OutputFile *>(opaque)->fd;
        int written = 0;
        while (written < size) {
            const ssize_t result = ::write(fd, buffer + written, size_t(size - written));
            if (result < 0) {
                if (errno == EINTR)
                    continue;
                return AVERROR(errno);
            }
            written += int(result);
        }
        return size;
    }

    static int64_t seek(void *opaque, int64_t offset, int whence)
    {
        const int fd = static_cast<OutputFile *>(opaque)->fd;
        if (whence == AVSEEK_SIZE) {
            struct stat info;
            return ::fstat(fd, &info) == 0 ? int64_t(info.st_size) : AVERROR(errno);
        }
        const off_t result = ::lseek(fd, offset, whence & ~AVSEEK_FORCE);
        return result < 0 ? AVERROR(errno) : int64_t(result);
    }
};

// Flushes and frees the output's I/O context and closes its file; the first error of
// writing, flushing or closing, or 0.
int closeOutputFile(AVFormatContext *context, OutputFile &file)
{
    int error = 0;
    if (context && context->pb) {
        avio_flush(context->pb);
        error = context->pb->error;
        av_freep(&context->pb->buffer);
        avio_context_free(&context->pb);
    }
    if (file.fd >= 0) {
        if (::close(file.fd) != 0 && error == 0)
            error = AVERROR(errno);
        file.fd = -1;
    }
    return error;
}

struct OutputFreer
{
    void operator()(AVFormatContext *context) const
    {
        if (!context)
            return;
        // The I/O context is ours (closeOutputFile()); by now it is gone.
        avformat_free_context(context);
    }
};
using Output = std::unique_ptr<AVFormatContext, OutputFreer>;

struct PacketFreer
{
    void operator()(AVPacket *packet) const { av_packet_free(&packet); }
};
using Packet = std::unique_ptr<AVPacket, PacketFreer>;

// Whether a subtitle codec's packets are plain UTF-8 text that can become tx3g samples.
bool isPlainTextSubtitle(AVCodecID codec)
{
    return codec == AV_CODEC_ID_SUBRIP || codec == AV_CODEC_ID_TEXT;
}
} // namespace

namespace {
// An upper bound of the size of the index ("moov") the muxer will write, or 0 when a sample
// count is not known in advance. QuickTime-family inputs index every sample at opening; the
// new text tracks and the chapter track have one sample per cue plus at most one gap filler
// each. Every sample costs at most 45 bytes of sample tables: size (4), time (8),
// composition offset (8), sync sample (4), and, were every sample a chunk of its own, chunk
// offset (8) and sample-to-chunk entry (12), plus 1 spare.
int64_t indexBound(const AVFormatContext *in, const AVFormatContext *out, const std::vector<int> &streamMap,
                   int64_t textSamples)
{
    if (std::strcmp(in->iformat->name, "mov,mp4,m4a,3gp,3g2,mj2") != 0)
        return 0;
    constexpr int64_t perSample = 45;
    int64_t bound = 32 * 1024;
    int64_t samples = textSamples;
    for (unsigned i = 0; i < in->nb_streams; ++i) {
        if (streamMap[i] < 0)
            continue;
        const int count = avformat_index_get_entries_count(in->streams[i]);
        if (count <= 0)
            return 0;
        samples += count;
    }
    for (unsigned i = 0; i < out->nb_streams; ++i)
        bound += 4096 + out->streams[i]->codecpar->extradata_size;
    auto dictionarySize = [](const AVDictionary *dictionary) {
        int64_t size = 0;
        const AVDictionaryEntry *entry = nullptr;
        while ((entry = av_dict_get(dictionary, "", entry, AV_DICT_IGNORE_SUFFIX)))
            size += 64 + int64_t(std::strlen(entry->key)) + int64_t(std::strlen(entry->value));
        return size;
    };
    bound += dictionarySize(out->metadata);
    for (unsigned i = 0; i < out->nb_streams; ++i)
        bound += dictionarySize(out->streams[i]->metadata);
    for (unsigned i = 0; i < out->nb_chapters; ++i)
        bound += 2 * perSample + 2 * dictionarySize(out->chapters[i]->metadata);
    bound += perSample * samples;
    return bound <= INT_MAX ? bound : 0;
}
} // namespace

CTSubtitleEmbedderDelegate::~CTSubtitleEmbedderDelegate() = default;
void CTSubtitleEmbedderDelegate::subtitleEmbedderStarted(CTSubtitleEmbedder *) {}
void CTSubtitleEmbedderDelegate::subtitleEmbedderCanceled(CTSubtitleEmbedder *) {}

// Everything the writer thread needs; set up on the main thread, then owned by the writer.
struct CTSubtitleEmbedder::Run
{
    LibAv::Input input;
    Output output;
    std::vector<int> streamMap; // input stream index → output stream index, -1: not copied
    std::vector<int> slotOf;    // input stream index → progress slot (0: none)
    std::vector<bool> toTx3g;   // input stream carries plain text that becomes tx3g
    struct Source
    {
        std::unique_ptr<CTSubtitleReader> reader;
        int stream = -1;
    };
    std::vector<Source> sources;
    QString outputPath;
    OutputFile file;

    ~Run() { closeOutputFile(output.get(), file); }
};

std::shared_ptr<CTSubtitleEmbedder> CTSubtitleEmbedder::initWithAsset(std::shared_ptr<const MovieAsset> asset,
                                                                      const QString &path, double fps)
{
    std::shared_ptr<CTSubtitleEmbedder> embedder(new CTSubtitleEmbedder);
    embedder->m_fps = fps;
    QString expanded = path;
    if (expanded == u"~"_s || expanded.startsWith(u"~/"_s))
        expanded = QDir::homePath() + expanded.mid(1);
    embedder->m_moviePath = expanded;
    embedder->m_outputMoviePath = CTFileHelper::stringByDeletingPathExtension(expanded) + u"-Output.m4v"_s;
    embedder->m_asset = std::move(asset);
    if (embedder->m_asset)
        embedder->m_duration = embedder->m_asset->duration();
    embedder->updateSubtitles();
    return embedder;
}

CTSubtitleEmbedder::~CTSubtitleEmbedder()
{
    if (m_thread.joinable()) {
        m_cancelled = true;
        m_thread.join();
    }
}

bool CTSubtitleEmbedder::integrateLanguage(const QString &language, const QList<CandidateRow> &rows)
{
    if (language.isEmpty())
        return false;
    for (const CandidateRow &row : rows) {
        if (row.language.contains(language))
            return false;
    }
    return true;
}

void CTSubtitleEmbedder::updateSubtitles()
{
    QList<CandidateRow> rows;
    const QString base = CTFileHelper::stringByDeletingPathExtension(m_moviePath);
    const LanguageList languages = CTFileHelper::languagesAtBasePath(base);
    for (const LanguagePtr &language : languages) {
        CandidateRow row;
        row.integrate = language->specifier().isEmpty();
        row.language = language->displayName();
        row.source = kExternal;
        row.location = CTFileHelper::lastPathComponent(language->path());
        row.path = language->path();
        row.isSubtitle = true;
        rows.append(row);
    }
    const QList<MovieTrack> tracks = m_asset ? m_asset->tracks() : QList<MovieTrack>();
    for (const MovieTrack &track : tracks) {
        if (track.kind != MovieTrack::Kind::Subtitle)
            continue;
        CandidateRow row;
        const QString locale = CTFileHelper::localeForLanguageCode(track.languageCode);
        row.language = LibAv::nativeDisplayName(locale);
        row.integrate = integrateLanguage(row.language, rows);
        row.source = kEmbedded;
        row.location = u"Movie-Track: %1"_s.arg(track.trackID);
        row.trackID = track.trackID;
        row.isSubtitle = true;
        rows.append(row);
    }
    const QString chapterPath = CTFileHelper::chapterMarksPath(base);
    const bool hasChapterFile = QFileInfo(chapterPath).isFile();
    if (hasChapterFile) {
        CandidateRow row;
        row.integrate = true;
        row.language = kChapterMarks;
        row.source = kExternal;
        row.location = CTFileHelper::lastPathComponent(chapterPath);
        row.path = chapterPath;
        row.isSubtitle = false;
        rows.append(row);
    }
    bool hasTextTrack = false;
    for (const MovieTrack &track : tracks) {
        if (track.kind != MovieTrack::Kind::Text)
            continue;
        hasTextTrack = true;
        CandidateRow row;
        row.integrate = !hasChapterFile;
        row.language = kChapterMarks;
        row.source = kEmbedded;
        row.location = u"Movie-Track: %1"_s.arg(track.trackID);
        row.trackID = track.trackID;
        row.isSubtitle = false;
        rows.append(row);
    }
    // Containers that keep chapters as a list rather than a track (Matroska): one row for
    // the list, track 0.
    if (!hasTextTrack && m_asset && !m_asset->chapters().isEmpty()) {
        CandidateRow row;
        row.integrate = !hasChapterFile;
        row.language = kChapterMarks;
        row.source = kEmbedded;
        row.location = u"Movie-Track: 0"_s;
        row.trackID = 0;
        row.isSubtitle = false;
        rows.append(row);
    }
    m_subtitles = rows;
}

void CTSubtitleEmbedder::setStatus(const ProgressStatusPtr &status)
{
    m_status = status;
    if (!m_status)
        return;
    m_status->setProgress(ProgressStatus::Waiting);
    m_status->setTitle(u"Embedding Subtitles into %1"_s.arg(QFileInfo(m_moviePath).completeBaseName()));
}

void CTSubtitleEmbedder::createM4V()
{
    if (!m_status)
        setStatus(std::make_shared<ProgressStatus>());
    m_status->setMessage(QString());
    m_status->setRelatedURL(QString());
    std::weak_ptr<CTSubtitleEmbedder> weak = weak_from_this();
    m_status->startBlock = [weak] {
        if (auto self = weak.lock())
            self->startEmebdding();
    };
    ProgressController::shared().addProgressStatus(m_status);
    if (m_delegate)
        m_delegate->subtitleEmbedderStarted(this);
}

void CTSubtitleEmbedder::cancel()
{
    if (m_delegate)
        m_delegate->subtitleEmbedderCanceled(this);
}

void CTSubtitleEmbedder::endSetUp()
{
    m_isWorking = false;
    m_ended = true;
}

void CTSubtitleEmbedder::failToStart(const QString &error, bool outputExists)
{
    logLine(u"Warning: Asset writer failed to start writing: %1"_s.arg(error));
    m_isWorking = false;
    m_status->setProgress(ProgressStatus::Failed);
    if (outputExists)
        m_status->setMessage(u"Failed: %1 exists"_s.arg(CTFileHelper::lastPathComponent(m_outputMoviePath)));
    else
        m_status->setErrorMessage(error);
    m_ended = true;
    if (m_delegate)
        m_delegate->subtitleEmbedderDidFinish(this, false);
}

void CTSubtitleEmbedder::startEmebdding()
{
    if (m_isWorking)
        return;
    if (m_thread.joinable()) // an earlier run's writer, already done
        m_thread.join();
    if (!m_status)
        setStatus(std::make_shared<ProgressStatus>());
    m_ended = false;
    m_cancelled = false;
    auto run = std::make_shared<Run>();
    run->outputPath = m_outputMoviePath;

    // 1. The reader and the writer.
    QString error;
    run->input = LibAv::openInput(m_moviePath, &error);
    if (!run->input) {
        const QString line = u"error creating asset reader. exiting: %1"_s.arg(error);
        logLine(line);
        // The task ends visibly rather than waiting forever in the progress display.
        m_status->setErrorMessage(line);
        m_status->setProgress(ProgressStatus::Failed);
        return endSetUp();
    }
    AVFormatContext *in = run->input.get();
    AVFormatContext *outContext = nullptr;
    const QByteArray outputName = QFile::encodeName(m_outputMoviePath);
    int result = avformat_alloc_output_context2(&outContext, nullptr, "ipod", outputName.constData());
    if (result < 0 || !outContext) {
        const QString line = u"error creating asset writer. exiting: %1"_s.arg(LibAv::errorText(result));
        logLine(line);
        m_status->setErrorMessage(line);
        m_status->setProgress(ProgressStatus::Failed);
        return endSetUp();
    }
    run->output.reset(outContext);
    AVFormatContext *out = outContext;

    // 2. Working; cancelling stops the writer and leaves no output.
    m_isWorking = true;
    m_status->setProgress(0);
    std::weak_ptr<CTSubtitleEmbedder> weak = weak_from_this();
    m_status->cancelBlock = [weak] {
        if (auto self = weak.lock()) {
            self->m_cancelled = true;
            self->m_status->setMessage(QString());
            self->m_isWorking = false;
        }
    };

    // 3. Progress slots.
    m_progressCount = qMin(in->nb_streams, unsigned(MaxProgressTracks));
    m_progressMax = 0;
    m_progresses.fill(0);
    m_lastProgress = 0;

    // 4. The movie's metadata; fast start is asked for when the header is written.
    av_dict_copy(&out->metadata, in->metadata, 0);

    auto failSetUp = [&](const QString &message) {
        logLine(u"Error: %1"_s.arg(message));
        m_isWorking = false;
        m_status->setProgress(ProgressStatus::Failed);
        m_status->setErrorMessage(message);
        m_ended = true;
        if (m_delegate)
            m_delegate->subtitleEmbedderDidFinish(this, false);
    };

    // 5. Carried-over tracks.
    run->streamMap.assign(in->nb_streams, -1);
    run->slotOf.assign(in->nb_streams, 0);
    run->toTx3g.assign(in->nb_streams, false);
    QSizeF naturalSize;
    bool haveVideo = false;
    bool copyMovieChapters = false;
    for (unsigned i = 0; i < in->nb_streams; ++i) {
        AVStream *stream = in->streams[i];
        const MovieTrack::Kind kind = LibAv::kindOf(stream);
        const int trackID = LibAv::trackIDOf(stream);
        if (kind == MovieTrack::Kind::Video && !haveVideo && (stream->disposition & AV_DISPOSITION_DEFAULT)) {
            haveVideo = true;
            naturalSize = QSizeF(stream->codecpar->width, stream->codecpar->height);
        }
        stream->discard = AVDISCARD_ALL;
        if (kind == MovieTrack::Kind::Subtitle || kind == MovieTrack::Kind::Text) {
            bool chosen = false;
            for (const CandidateRow &row : std::as_const(m_subtitles))
                chosen |= row.source == kEmbedded && row.trackID == trackID && row.integrate;
            if (!chosen)
                continue;
            // The chapter track goes over as the movie's chapter list, which the muxer
            // writes as a chapter track of its own.
            if (kind == MovieTrack::Kind::Text) {
                copyMovieChapters = true;
                continue;
            }
        }
        if (kind == MovieTrack::Kind::Other) {
            logLine(
                u"Warning: Skipping track on the assumption that there is no media data to carry over (%1)"_s
                    .arg(u"Movie-Track: %1, %2"_s.arg(trackID).arg(
                        QString::fromLatin1(avcodec_get_name(stream->codecpar->codec_id)))));
            continue;
        }
        const AVCodecID codec = stream->codecpar->codec_id;
        const bool plainText = kind == MovieTrack::Kind::Subtitle && isPlainTextSubtitle(codec);
        if (!plainText && avformat_query_codec(out->oformat, codec, FF_COMPLIANCE_NORMAL) != 1) {
            failSetUp(
                u"Movie-Track: %1 cannot be written into an M4V movie: its codec %2 is not one MP4 can carry"_s
                    .arg(trackID)
                    .arg(QString::fromLatin1(avcodec_get_name(codec))));
            return;
        }
        AVStream *outStream = avformat_new_stream(out, nullptr);
        if (!outStream || avcodec_parameters_copy(outStream->codecpar, stream->codecpar) < 0) {
            logLine(u"Warning: Skipping input because it cannot be added to the asset writer %1"_s.arg(
                u"Movie-Track: %1"_s.arg(trackID)));
            continue;
        }
        if (plainText) {
            run->toTx3g[i] = true;
            AVCodecParameters *par = outStream->codecpar;
            par->codec_id = AV_CODEC_ID_MOV_TEXT;
            par->codec_tag = 0;
            av_freep(&par->extradata);
            const QByteArray description = TimedText::tx3gSampleDescription(0);
            par->extradata =
                static_cast<uint8_t *>(av_mallocz(size_t(description.size()) + AV_INPUT_BUFFER_PADDING_SIZE));
            memcpy(par->extradata, description.constData(), size_t(description.size()));
            par->extradata_size = int(description.size());
        } else if (av_codec_get_id(out->oformat->codec_tag, outStream->codecpar->codec_tag) != codec) {
            outStream->codecpar->codec_tag = 0;
        }
        outStream->time_base = stream->time_base;
        outStream->disposition = stream->disposition;
        av_dict_copy(&outStream->metadata, stream->metadata, 0);
        stream->discard = AVDISCARD_DEFAULT;
        run->streamMap[i] = outStream->index;
        if ((kind == MovieTrack::Kind::Video || kind == MovieTrack::Kind::Audio) &&
            m_progressMax < m_progressCount)
            run->slotOf[i] = int(++m_progressMax);
    }

    // 6. New tracks from the files.
    std::unique_ptr<CTSubtitleReader> chapterSource;
    for (const CandidateRow &row : std::as_const(m_subtitles)) {
        if (!row.integrate || row.path.isEmpty())
            continue;
        std::unique_ptr<CTSubtitleReader> source;
        if (row.isSubtitle)
            source = CTSubtitleReader::initForFile(row.path, m_fps, m_duration);
        else
            source = CTTextReader::initForFile(row.path, m_fps, m_duration);
        if (!source) {
            logLine(u"Error: Subtitle %1 cannot be embedded!"_s.arg(row.path));
            Prompt prompt;
            prompt.message =
                u"Subtitle '%1' cannot be embedded (file or structure broken).\n Do you want to continue embedding without this subtitle"_s
                    .arg(CTFileHelper::lastPathComponent(row.path));
            prompt.buttons = {u"Continue"_s, u"Cancel"_s};
            if (Prompter::shared().ask(prompt).button == 0)
                continue;
            m_status->cancel();
            // Nothing has been written yet: the run ends as stopped.
            m_status->setProgress(ProgressStatus::Stopped);
            m_status->setMessage(QString());
            return endSetUp();
        }
        source->setSize(naturalSize);
        const QByteArray description = source->copyFormatDescription();
        if (description.isEmpty()) {
            logLine(u"Warning: Skipping External subtitle reader, because there is no FormatDescription"_s);
            continue;
        }
        if (!row.isSubtitle) {
            chapterSource = std::move(source);
            continue;
        }
        // The language as the reader named it from the file, or as the file name says.
        QString locale =
            CTLanguage::languageWithFile(row.path, CTFileHelper::stringByDeletingPathExtension(m_moviePath))
                ->localeIdentifier();
        if (locale.isEmpty())
            locale = source->languageCode();
        QString iso = LibAv::iso639_2ForLocale(locale);
        source->setLanguageCode(iso.isEmpty() ? u"und"_s : iso);
        source->setExtendedLanguageTag(QString(locale).replace(u'_', u'-'));
        AVStream *outStream = avformat_new_stream(out, nullptr);
        if (!outStream) {
            logLine(u"skipping subtitles input because it cannot be added to the asset writer"_s);
            continue;
        }
        AVCodecParameters *par = outStream->codecpar;
        par->codec_type = AVMEDIA_TYPE_SUBTITLE;
        par->codec_id = AV_CODEC_ID_MOV_TEXT;
        par->extradata =
            static_cast<uint8_t *>(av_mallocz(size_t(description.size()) + AV_INPUT_BUFFER_PADDING_SIZE));
        memcpy(par->extradata, description.constData(), size_t(description.size()));
        par->extradata_size = int(description.size());
        outStream->time_base = AVRational{1, 600};
        av_dict_set(&outStream->metadata, "language", source->languageCode().toUtf8().constData(), 0);
        if (source->displayFlags() == TimedText::AllSamplesForced)
            outStream->disposition |= AV_DISPOSITION_FORCED;
        if (source->isSDH())
            outStream->disposition |= AV_DISPOSITION_HEARING_IMPAIRED;
        Run::Source entry;
        entry.reader = std::move(source);
        entry.stream = outStream->index;
        run->sources.push_back(std::move(entry));
    }

    // Chapters: from the chapter-marks file, else the movie's own when chosen. The muxer
    // writes them as a chapter text track referenced from the other tracks, and as a
    // chapter list.
    auto addChapter = [out](int64_t start, int64_t end, AVRational timeBase, const QByteArray &title) {
        auto *chapter = static_cast<AVChapter *>(av_mallocz(sizeof(AVChapter)));
        if (!chapter)
            return;
        chapter->id = int64_t(out->nb_chapters) + 1;
        chapter->time_base = timeBase;
        chapter->start = start;
        chapter->end = end;
        av_dict_set(&chapter->metadata, "title", title.constData(), 0);
        int count = int(out->nb_chapters);
        av_dynarray_add(&out->chapters, &count, chapter);
        out->nb_chapters = unsigned(count);
    };
    if (chapterSource) {
        while (std::optional<TextSample> sample = chapterSource->copyNextSampleBuffer())
            addChapter(sample->start, sample->start + sample->duration, AVRational{1, 600},
                       sample->text.toUtf8());
    } else if (copyMovieChapters || [&] {
                   for (const CandidateRow &row : std::as_const(m_subtitles))
                       if (row.source == kEmbedded && !row.isSubtitle && row.trackID == 0 && row.integrate)
                           return true;
                   return false;
               }()) {
        for (unsigned i = 0; i < in->nb_chapters; ++i) {
            const AVChapter *chapter = in->chapters[i];
            const AVDictionaryEntry *title = av_dict_get(chapter->metadata, "title", nullptr, 0);
            addChapter(chapter->start, chapter->end, chapter->time_base,
                       QByteArray(title ? title->value : ""));
        }
    }

    // 9. Start writing: the output file is created here and only here, never over an
    // existing one.
    run->file.fd = ::open(outputName.constData(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
    if (run->file.fd < 0) {
        const int code = errno;
        return failToStart(QString::fromLocal8Bit(std::strerror(code)), code == EEXIST);
    }
    constexpr int bufferSize = 1 << 20;
    auto *buffer = static_cast<unsigned char *>(av_malloc(bufferSize));
    out->pb = buffer ? avio_alloc_context(buffer, bufferSize, 1, &run->file, nullptr, &OutputFile::write,
                                          &OutputFile::seek)
                     : nullptr;
    if (!out->pb)
        av_free(buffer);
    out->flags |= AVFMT_FLAG_CUSTOM_IO;
    result = out->pb ? 0 : AVERROR(ENOMEM);
    // The index goes in front of the media data. When every sample count is known before
    // writing, room for the index is reserved at the start and the index written into it at
    // the end; otherwise the muxer writes it after the data and then moves the whole file
    // to put it in front, which reads and writes every byte a second time.
    AVDictionary *options = nullptr;
    if (const int64_t reserve = indexReservation(*run); reserve > 0)
        av_dict_set_int(&options, "moov_size", reserve, 0);
    else
        av_dict_set(&options, "movflags", "+faststart", 0);
    if (result >= 0)
        result = avformat_write_header(out, &options);
    av_dict_free(&options);
    if (result < 0) {
        closeOutputFile(out, run->file);
        QFile::remove(m_outputMoviePath);
        return failToStart(LibAv::errorText(result), false);
    }

    // 10-13. The writer thread does the rest.
    m_thread = std::thread([this, run] { writerThread(run); });
}

int64_t CTSubtitleEmbedder::indexReservation(const Run &run)
{
    int64_t textSamples = 0;
    for (const Run::Source &source : run.sources)
        textSamples += 2 * int64_t(source.reader->subtitles().size()) + 2;
    return indexBound(run.input.get(), run.output.get(), run.streamMap, textSamples);
}

void CTSubtitleEmbedder::postProgress(double value)
{
    std::weak_ptr<CTSubtitleEmbedder> weak = weak_from_this();
    MainQueue::main().post([weak, value] {
        auto self = weak.lock();
        if (self && self->m_status && !self->m_status->isIndeterminate())
            self->m_status->setProgress(value);
    });
}

void CTSubtitleEmbedder::writerThread(std::shared_ptr<Run> run)
{
    AVFormatContext *in = run->input.get();
    AVFormatContext *out = run->output.get();
    Packet packet(av_packet_alloc());
    Packet textPacket(av_packet_alloc());
    int writeError = 0;
    int readError = 0;

    auto average = [this] {
        double sum = 0;
        for (unsigned slot = 1; slot <= m_progressCount; ++slot)
            sum += m_progresses[slot];
        return m_progressCount ? sum / m_progressCount : 0.0;
    };

    // Writes a text sample of one of the new tracks.
    auto writeText = [&](Run::Source &source) {
        std::optional<TextSample> sample = source.reader->copyNextSampleBuffer();
        // Without a frame rate a cue may round to no time at all; it would show for no time
        // and the muxer refuses two samples at one time.
        if (!sample || writeError || sample->duration <= 0)
            return;
        av_packet_unref(textPacket.get());
        if (av_new_packet(textPacket.get(), int(sample->payload.size())) < 0) {
            writeError = AVERROR(ENOMEM);
            return;
        }
        memcpy(textPacket->data, sample->payload.constData(), size_t(sample->payload.size()));
        const AVRational timeBase = out->streams[source.stream]->time_base;
        textPacket->pts = av_rescale_q(sample->start, AVRational{1, 600}, timeBase);
        textPacket->dts = textPacket->pts;
        textPacket->duration = av_rescale_q(sample->duration, AVRational{1, 600}, timeBase);
        textPacket->stream_index = source.stream;
        textPacket->flags |= AV_PKT_FLAG_KEY;
        const int result = av_interleaved_write_frame(out, textPacket.get());
        if (result < 0)
            writeError = result;
    };
    // Writes every new text sample that starts before `seconds`.
    auto writeTextUntil = [&](double seconds) {
        for (Run::Source &source : run->sources) {
            while (!writeError) {
                const std::optional<double> start = source.reader->nextSampleStart();
                if (!start || *start > seconds)
                    break;
                writeText(source);
            }
        }
    };

    std::vector<int64_t> packetsRead(in->nb_streams, 0);
    while (!m_cancelled && !writeError) {
        int result = av_read_frame(in, packet.get());
        if (result == AVERROR_EOF)
            break;
        if (result < 0) {
            readError = result;
            logLine(u"the reader failed: %1"_s.arg(LibAv::errorText(result)));
            break;
        }
        const int index = packet->stream_index;
        if (index < 0 || index >= int(run->streamMap.size()) || run->streamMap[size_t(index)] < 0) {
            av_packet_unref(packet.get());
            continue;
        }
        ++packetsRead[size_t(index)];
        const AVStream *inStream = in->streams[index];
        const int64_t time = packet->pts != AV_NOPTS_VALUE ? packet->pts : packet->dts;
        if (time != AV_NOPTS_VALUE) {
            const double seconds = double(time) * av_q2d(inStream->time_base);
            const int slot = run->slotOf[size_t(index)];
            if (slot > 0 && seconds >= 0 && m_duration > 0)
                m_progresses[size_t(slot)] = seconds / m_duration;
            const double now = secondsNow();
            if (std::abs(now - m_lastProgress) > 0.5) {
                postProgress(average());
                m_lastProgress = now;
            }
            writeTextUntil(seconds);
        }
        const int outIndex = run->streamMap[size_t(index)];
        if (run->toTx3g[size_t(index)]) {
            // A plain-text subtitle packet becomes a tx3g sample of the same time.
            const QString text =
                QString::fromUtf8(reinterpret_cast<const char *>(packet->data), packet->size);
            const QByteArray payload = TimedText::tx3gSamplePayload(text, false);
            Packet converted(av_packet_alloc());
            if (av_new_packet(converted.get(), int(payload.size())) < 0 ||
                av_packet_copy_props(converted.get(), packet.get()) < 0) {
                writeError = AVERROR(ENOMEM);
                break;
            }
            memcpy(converted->data, payload.constData(), size_t(payload.size()));
            av_packet_unref(packet.get());
            av_packet_move_ref(packet.get(), converted.get());
        }
        av_packet_rescale_ts(packet.get(), inStream->time_base, out->streams[outIndex]->time_base);
        packet->stream_index = outIndex;
        packet->pos = -1;
        result = av_interleaved_write_frame(out, packet.get());
        if (result < 0)
            writeError = result;
    }
    // A QuickTime-family movie indexes every sample up front: fewer samples than indexed
    // means its media data was cut short, and the copy would be a truncated movie.
    if (!m_cancelled && !writeError && !readError &&
        std::strcmp(in->iformat->name, "mov,mp4,m4a,3gp,3g2,mj2") == 0) {
        for (unsigned i = 0; i < in->nb_streams; ++i) {
            if (run->streamMap[i] >= 0 && packetsRead[i] < avformat_index_get_entries_count(in->streams[i])) {
                readError = AVERROR_INVALIDDATA;
                logLine(u"the reader failed: %1"_s.arg(
                    u"Movie-Track: %1 ends after %2 of its %3 samples"_s.arg(LibAv::trackIDOf(in->streams[i]))
                        .arg(packetsRead[i])
                        .arg(avformat_index_get_entries_count(in->streams[i]))));
                break;
            }
        }
    }
    if (!m_cancelled && !writeError && !readError) {
        writeTextUntil(std::numeric_limits<double>::infinity());
        for (unsigned slot = 1; slot <= m_progressMax; ++slot)
            m_progresses[slot] = 1.0;
        postProgress(average());
    }

    std::weak_ptr<CTSubtitleEmbedder> weak = weak_from_this();
    // Completion, 2: rewriting the index in front of the data has no fraction to show.
    MainQueue::main().post([weak] {
        if (auto self = weak.lock()) {
            self->m_status->setProgress(ProgressStatus::Busy);
            self->m_status->setMessage(u"Optimizing"_s);
        }
    });

    // 3: finish the file, unless the run failed or was cancelled.
    const bool cancelled = m_cancelled;
    bool failed = writeError != 0 || readError != 0;
    int failure = writeError ? writeError : readError;
    if (!failed && !cancelled) {
        const int result = av_write_trailer(out);
        if (result < 0) {
            failed = true;
            failure = result;
        }
    }
    if (const int error = closeOutputFile(out, run->file); error < 0 && !failed && !cancelled) {
        failed = true;
        failure = error;
    }
    const QString failureText = failed ? LibAv::errorText(failure) : QString();
    if (failed || cancelled)
        QFile::remove(run->outputPath);
    if (!cancelled) {
        const QString outputPath = run->outputPath;
        MainQueue::main().post([weak, failed, failureText, outputPath] {
            auto self = weak.lock();
            if (!self)
                return;
            self->m_isWorking = false;
            if (!failed) {
                self->m_status->setProgress(ProgressStatus::Done);
                self->m_status->setMessage(QString());
                QString url = outputPath;
                if (self->m_delegate)
                    url = self->m_delegate->subtitleEmbedderDidFinish(self.get(), true);
                self->m_status->setRelatedURL(url);
            } else {
                self->m_status->setProgress(ProgressStatus::Failed);
                self->m_status->setErrorMessage(
                    u"Audio-Video engine gave back the following error:\n%1"_s.arg(failureText));
                self->m_status->setMessage(QString());
                if (self->m_delegate)
                    self->m_delegate->subtitleEmbedderDidFinish(self.get(), false);
            }
        });
    }
    // 4 and 5: the final state; after a success this -1 follows the 3 on purpose.
    MainQueue::main().post([weak, failed, failureText] {
        auto self = weak.lock();
        if (!self)
            return;
        if (!failed) {
            self->m_status->setProgress(ProgressStatus::Stopped);
            self->m_status->setMessage(QString());
        } else {
            self->m_status->setProgress(ProgressStatus::Failed);
            self->m_status->setErrorMessage(
                u"Audio-Video engine gave back the following error:\n%1"_s.arg(failureText));
            self->m_status->setMessage(u"Failed: Broken Data"_s);
        }
        self->m_isWorking = false;
        self->m_ended = true;
        if (self->m_thread.joinable())
            self->m_thread.join();
    });
}
