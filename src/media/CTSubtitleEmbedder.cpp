#include "CTSubtitleEmbedder.h"

#include "CTFileHelper.h"
#include "CTLanguage.h"
#include "CTSubtitleReader.h"
#include "EmbeddingRun.h"
#include "LibAv.h"
#include "Log.h"
#include "Prompter.h"
#include "TimedTextSamples.h"

extern "C" {
#include <libavutil/mathematics.h>
}

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <vector>

using namespace Qt::StringLiterals;

namespace {
const QString kExternal = u"external"_s;
const QString kEmbedded = u"embedded"_s;
const QString kChapterMarks = u"Chapter Marks"_s;
} // namespace

using namespace Embedding;

CTSubtitleEmbedderDelegate::~CTSubtitleEmbedderDelegate() = default;
void CTSubtitleEmbedderDelegate::subtitleEmbedderStarted(CTSubtitleEmbedder *) {}
void CTSubtitleEmbedderDelegate::subtitleEmbedderCanceled(CTSubtitleEmbedder *) {}

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
    m_status->setTitle(QCoreApplication::translate("CTSubtitleEmbedder", "Embedding Subtitles into %1")
                           .arg(QFileInfo(m_moviePath).completeBaseName()));
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
        m_status->setMessage(QCoreApplication::translate("CTSubtitleEmbedder", "Failed: %1 exists")
                                 .arg(CTFileHelper::lastPathComponent(m_outputMoviePath)));
    else
        m_status->setErrorMessage(error);
    m_ended = true;
    if (m_delegate)
        m_delegate->subtitleEmbedderDidFinish(this, false);
}

namespace {
QString damagedMovieMessage()
{
    return QCoreApplication::translate(
        "CTSubtitleEmbedder", "The movie '%1' is damaged: %2.\n Do you want to continue embedding what "
                              "can be read?");
}
} // namespace

bool CTSubtitleEmbedder::isDamagedMovieQuestion(const Prompt &prompt)
{
    // Recognised by the text before and between the two names, in whatever language it is.
    const QString message = damagedMovieMessage();
    const qsizetype first = message.indexOf(u"%1"_s), second = message.indexOf(u"%2"_s);
    if (first < 0 || second < first)
        return false;
    return prompt.message.startsWith(message.left(first)) &&
           prompt.message.contains(message.mid(first + 2, second - first - 2));
}

namespace {
Prompt damagedMovieQuestion(const QString &moviePath, const QStringList &reasons)
{
    Prompt prompt;
    prompt.message =
        damagedMovieMessage().arg(CTFileHelper::lastPathComponent(moviePath), reasons.join(u"; "_s));
    prompt.buttons = {QCoreApplication::translate("CTSubtitleEmbedder", "Continue"),
                      QCoreApplication::translate("CTSubtitleEmbedder", "Cancel")};
    return prompt;
}
} // namespace

// Asks about a damaged movie on the main thread; true to go on.
bool CTSubtitleEmbedder::continueDespiteDamage(const QStringList &reasons)
{
    if (m_acceptDamaged) {
        logLine(u"Warning: Embedding the damaged movie %1 as far as it can be read: %2"_s.arg(
            m_moviePath, reasons.join(u"; "_s)));
        return true;
    }
    return Prompter::shared().ask(damagedMovieQuestion(m_moviePath, reasons)).button == 0;
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
    run->temporaryPath = temporaryPathFor(m_outputMoviePath);
    removeStaleTemporaries(m_outputMoviePath);

    // 1. The reader and the writer. What the demuxer complains about while reading the
    // header is damage the user is asked about.
    QString error;
    QStringList damage;
    {
        LibAv::ReadErrors readErrors;
        run->input = LibAv::openInput(m_moviePath, &error);
        damage = readErrors.messages();
    }
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
    const QByteArray temporaryName = QFile::encodeName(run->temporaryPath);
    // The "mp4" muxer carries every codec MP4 allows (HEVC, MP3, AC-3, E-AC-3, ALAC, Opus);
    // the M4V brand is set when the header is written.
    int result = avformat_alloc_output_context2(&outContext, nullptr, "mp4", temporaryName.constData());
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

    // 4. The movie's metadata; fast start is asked for when the header is written. The
    // content rating has no place in the muxer and is written into the index afterwards.
    av_dict_copy(&out->metadata, in->metadata, 0);
    if (const AVDictionaryEntry *rating = av_dict_get(in->metadata, "rating", nullptr, 0))
        run->rating = rating->value;
    if (const AVDictionaryEntry *rating = av_dict_get(in->metadata, "iTunEXTC", nullptr, 0))
        run->extendedRating = rating->value;

    // The status carries the reason; the window shows it and the command line prints it once.
    auto failSetUp = [&](const QString &message) {
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
        if (kind == MovieTrack::Kind::Other && (stream->disposition & AV_DISPOSITION_ATTACHED_PIC) &&
            stream->attached_pic.size > 0) {
            // Cover art: the muxer writes it as the movie's picture ("covr").
            AVStream *outStream = avformat_new_stream(out, nullptr);
            if (outStream && avcodec_parameters_copy(outStream->codecpar, stream->codecpar) >= 0) {
                outStream->codecpar->codec_tag = 0;
                outStream->disposition = AV_DISPOSITION_ATTACHED_PIC;
                outStream->time_base = stream->time_base;
                run->coverStreams.push_back(int(i));
                run->streamMap[i] = -2 - outStream->index; // written once, from the header
            }
            continue;
        }
        if (kind == MovieTrack::Kind::Other) {
            logLine(
                u"Warning: Skipping track on the assumption that there is no media data to carry over (%1)"_s
                    .arg(u"Movie-Track: %1, %2"_s.arg(trackID).arg(
                        QString::fromLatin1(avcodec_get_name(stream->codecpar->codec_id)))));
            continue;
        }
        const AVCodecID codec = stream->codecpar->codec_id;
        // A picture or sound track that cannot be read (broken sample tables leave a
        // QuickTime track without any sample) is damage, not something to leave out quietly.
        if ((kind == MovieTrack::Kind::Video || kind == MovieTrack::Kind::Audio) &&
            (codec == AV_CODEC_ID_NONE || (std::strcmp(in->iformat->name, "mov,mp4,m4a,3gp,3g2,mj2") == 0 &&
                                           avformat_index_get_entries_count(stream) <= 0))) {
            damage.append(u"Movie-Track: %1 (%2) cannot be read"_s.arg(trackID).arg(
                kind == MovieTrack::Kind::Video ? u"video"_s : u"audio"_s));
            continue;
        }
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
        } else if (codec == AV_CODEC_ID_HEVC && stream->codecpar->extradata_size > 22) {
            // Apple's players want HEVC as 'hvc1' (parameter sets in the sample description,
            // where an hvcC record puts them).
            outStream->codecpar->codec_tag = MKTAG('h', 'v', 'c', '1');
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
            prompt.message = QCoreApplication::translate(
                                 "CTSubtitleEmbedder", "Subtitle '%1' cannot be embedded (file or structure "
                                                       "broken).\n Do you want to continue embedding without "
                                                       "this subtitle")
                                 .arg(CTFileHelper::lastPathComponent(row.path));
            prompt.buttons = {QCoreApplication::translate("CTSubtitleEmbedder", "Continue"),
                              QCoreApplication::translate("CTSubtitleEmbedder", "Cancel")};
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
        if (run->characteristics.size() <= size_t(outStream->index)) {
            run->characteristics.resize(size_t(outStream->index) + 1);
            run->languageTags.resize(size_t(outStream->index) + 1);
        }
        for (const MetadataItem &item : source->metadata())
            if (item.first == CTSubtitleReader::TaggedCharacteristicKey)
                run->characteristics[size_t(outStream->index)].append(item.second);
        run->languageTags[size_t(outStream->index)] = source->extendedLanguageTag();
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

    // A damaged movie is asked about before anything is written.
    if (!damage.isEmpty() && !continueDespiteDamage(damage)) {
        m_status->setErrorMessage(damage.join(u"; "_s));
        m_status->setMessage(QCoreApplication::translate("CTSubtitleEmbedder", "Failed: Broken Data"));
        m_isWorking = false;
        m_status->setProgress(ProgressStatus::Failed);
        m_ended = true;
        if (m_delegate)
            m_delegate->subtitleEmbedderDidFinish(this, false);
        return;
    }

    // 9. Start writing: never over an existing output. The file is written under a
    // temporary name, created here and only here, and renamed into place when complete.
    struct stat existing;
    if (::lstat(outputName.constData(), &existing) == 0)
        return failToStart(QString::fromLocal8Bit(std::strerror(EEXIST)), true);
    run->file.fd = ::open(temporaryName.constData(), O_RDWR | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
    if (run->file.fd < 0)
        return failToStart(QString::fromLocal8Bit(std::strerror(errno)), false);
    // The lock tells a later run that this temporary is still being written.
    run->lockFd = ::open(temporaryName.constData(), O_RDONLY | O_CLOEXEC);
    if (run->lockFd >= 0)
        ::flock(run->lockFd, LOCK_EX | LOCK_NB);
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
    av_dict_set(&options, "brand", "M4V ", 0);
    if (const int64_t reserve = indexReservation(*run); reserve > 0)
        av_dict_set_int(&options, "moov_size", reserve, 0);
    else
        av_dict_set(&options, "movflags", "+faststart", 0);
    if (result >= 0)
        result = avformat_write_header(out, &options);
    av_dict_free(&options);
    for (int index : run->coverStreams) {
        if (result < 0)
            break;
        AVPacket *picture = av_packet_clone(&in->streams[index]->attached_pic);
        if (!picture)
            continue;
        picture->stream_index = -2 - run->streamMap[size_t(index)];
        picture->pts = picture->dts = 0;
        result = av_write_frame(out, picture);
        av_packet_free(&picture);
    }
    if (result < 0) {
        closeOutputFile(out, run->file);
        QFile::remove(run->temporaryPath);
        return failToStart(LibAv::errorText(result), false);
    }

    // 10-13. The writer thread does the rest.
    m_thread = std::thread([this, run] { writerThread(run); });
}
