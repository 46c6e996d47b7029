// The writer thread of an embedding: copies the movie's packets and the new text samples
// into the muxer in time order, reports progress through the main queue, finishes or
// removes the output.
#include "CTSubtitleEmbedder.h"
#include "EmbeddingRun.h"
#include "LibAv.h"
#include "Log.h"
#include "MainQueue.h"
#include "MovieBoxes.h"
#include "TimedTextSamples.h"

extern "C" {
#include <libavutil/mathematics.h>
}

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStringList>

#include <condition_variable>
#include <mutex>
#include <thread>

#include <csignal>
#include <fcntl.h>
#include <signal.h>
#include <stdio.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <chrono>
#include <climits>
#include <cmath>
#include <cstring>
#include <limits>

using namespace Qt::StringLiterals;

namespace {
double secondsNow()
{
    return std::chrono::duration<double>(std::chrono::steady_clock::now().time_since_epoch()).count();
}

struct PacketFreer
{
    void operator()(AVPacket *packet) const { av_packet_free(&packet); }
};
using Packet = std::unique_ptr<AVPacket, PacketFreer>;
} // namespace

namespace Embedding {

QString temporaryPathFor(const QString &outputPath)
{
    const QFileInfo info(outputPath);
    return info.dir().filePath(u".%1.%2.part"_s.arg(info.fileName()).arg(::getpid()));
}

void removeStaleTemporaries(const QString &outputPath)
{
    const QFileInfo info(outputPath);
    const QString prefix = u"."_s + info.fileName() + u"."_s;
    const QStringList names =
        info.dir().entryList({prefix + u"*.part"_s}, QDir::Files | QDir::Hidden | QDir::System);
    for (const QString &name : names) {
        const QString middle = name.mid(prefix.size(), name.size() - prefix.size() - 5);
        bool isNumber = false;
        const qint64 pid = middle.toLongLong(&isNumber);
        if (!isNumber || pid <= 0)
            continue;
        // A living writer may not have taken its lock yet (it is taken right after the
        // file is created): only the temporaries of processes that are gone are removed.
        if (pid == ::getpid() || ::kill(pid_t(pid), 0) == 0 || errno != ESRCH)
            continue;
        const QByteArray path = QFile::encodeName(info.dir().filePath(name));
        struct stat status;
        if (::lstat(path.constData(), &status) != 0 || !S_ISREG(status.st_mode))
            continue;
        const int fd = ::open(path.constData(), O_RDONLY | O_CLOEXEC | O_NOFOLLOW);
        if (fd < 0)
            continue;
        // A run that still writes holds the lock (also one of a new process that took over
        // the pid); one that was killed holds nothing.
        if (::flock(fd, LOCK_EX | LOCK_NB) == 0) {
            if (::unlink(path.constData()) == 0)
                logLine(u"Info: Removed %1, left by an embedding that did not end"_s.arg(
                    info.dir().filePath(name)));
        }
        ::close(fd);
    }
}

int renameWithoutReplacing(const QString &from, const QString &to)
{
    const QByteArray source = QFile::encodeName(from);
    const QByteArray target = QFile::encodeName(to);
    if (::renameat2(AT_FDCWD, source.constData(), AT_FDCWD, target.constData(), RENAME_NOREPLACE) == 0)
        return 0;
    if (errno != EINVAL && errno != ENOSYS && errno != ENOTSUP)
        return errno;
    // Filesystems without the no-replace rename: a new link fails on an existing name too.
    if (::link(source.constData(), target.constData()) != 0)
        return errno;
    ::unlink(source.constData());
    return 0;
}

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

} // namespace Embedding

using namespace Embedding;

int64_t CTSubtitleEmbedder::indexReservation(const Run &run)
{
    int64_t textSamples = 0;
    for (const Run::Source &source : run.sources)
        textSamples += 2 * int64_t(source.reader->subtitles().size()) + 2;
    const int64_t bound = indexBound(run.input.get(), run.output.get(), run.streamMap, textSamples);
    // Cover art goes into the index's metadata list whole.
    int64_t pictures = 0;
    for (int index : run.coverStreams)
        pictures += 64 + run.input->streams[index]->attached_pic.size;
    return bound > 0 && bound + pictures <= INT_MAX ? bound + pictures : 0;
}

namespace {
QByteArray box(const char *type, const QByteArray &payload)
{
    return MovieBoxes::leaf(type, payload).serialize(0, nullptr);
}

// Adds what the muxer has no place for to the finished index: the new subtitle tracks'
// tagged characteristics (trak/udta/tagc) and extended language tags (mdia/elng, after the
// media header), and the movie's content rating (moov/udta/meta/ilst).
void addIndexBoxes(MovieBoxes::Box &moov, const AVFormatContext *out,
                   const std::vector<QStringList> &characteristics, const std::vector<QString> &languageTags,
                   const QByteArray &rating, const QByteArray &extendedRating)
{
    // The muxer writes one 'sbtl' track per subtitle stream, in stream order.
    QList<MovieBoxes::Box *> subtitleTracks;
    for (MovieBoxes::Box *trak : MovieBoxes::tracks(moov))
        if (MovieBoxes::handlerType(*trak) == "sbtl")
            subtitleTracks.append(trak);
    std::vector<unsigned> subtitleStreams;
    for (unsigned i = 0; i < out->nb_streams; ++i)
        if (out->streams[i]->codecpar->codec_type == AVMEDIA_TYPE_SUBTITLE)
            subtitleStreams.push_back(i);
    if (size_t(subtitleTracks.size()) != subtitleStreams.size()) {
        logLine(u"Warning: The subtitle tracks of the written movie do not match its streams; they stay "
                "without accessibility characteristics and extended language tags"_s);
    } else {
        for (size_t k = 0; k < subtitleStreams.size(); ++k) {
            const size_t stream = subtitleStreams[k];
            MovieBoxes::Box &trak = *subtitleTracks[qsizetype(k)];
            if (stream < characteristics.size() && !characteristics[stream].isEmpty()) {
                MovieBoxes::Box *udta = trak.child("udta");
                if (!udta) {
                    MovieBoxes::Box fresh;
                    fresh.type = "udta";
                    fresh.container = true;
                    trak.children.append(fresh);
                    udta = &trak.children.last();
                }
                for (const QString &characteristic : characteristics[stream])
                    udta->children.append(MovieBoxes::leaf("tagc", MovieBoxes::tagcPayload(characteristic)));
            }
            MovieBoxes::Box *mdia = trak.child("mdia");
            if (mdia && stream < languageTags.size() && !languageTags[stream].isEmpty()) {
                qsizetype at = 0;
                while (at < mdia->children.size() && mdia->children[at].type != "mdhd")
                    ++at;
                mdia->children.insert(
                    std::min(at + 1, mdia->children.size()),
                    MovieBoxes::leaf("elng", MovieBoxes::elngPayload(languageTags[stream])));
            }
        }
    }
    if (rating.isEmpty() && extendedRating.isEmpty())
        return;
    MovieBoxes::Box *udta = moov.child("udta");
    MovieBoxes::Box *meta = udta ? udta->child("meta") : nullptr;
    MovieBoxes::Box *ilst = meta ? meta->child("ilst") : nullptr;
    if (!ilst) {
        logLine(u"Warning: The written movie has no metadata list for its content rating"_s);
        return;
    }
    auto dataBox = [](quint32 type, const QByteArray &value) {
        QByteArray payload;
        payload.append(char(type >> 24)).append(char(type >> 16)).append(char(type >> 8)).append(char(type));
        payload.append(QByteArray(4, '\0'));
        payload.append(value);
        return box("data", payload);
    };
    if (!rating.isEmpty()) {
        bool ok = false;
        const int value = rating.toInt(&ok);
        if (ok && value >= 0 && value < 256)
            ilst->children.append(MovieBoxes::leaf("rtng", dataBox(21, QByteArray(1, char(value)))));
    }
    if (!extendedRating.isEmpty()) {
        const QByteArray full(4, '\0');
        ilst->children.append(MovieBoxes::leaf("----", box("mean", full + "com.apple.iTunes") +
                                                           box("name", full + "iTunEXTC") +
                                                           dataBox(1, extendedRating)));
    }
}
} // namespace

// Asks about a damaged movie from the writer thread: the question goes to the main queue,
// and the writer waits for the answer (or for a cancel). True to go on.
bool CTSubtitleEmbedder::askFromWriterAboutDamage(const QStringList &reasons)
{
    if (m_acceptDamaged)
        return continueDespiteDamage(reasons);
    struct Answer
    {
        std::mutex mutex;
        std::condition_variable ready;
        bool done = false;
        bool goOn = false;
    };
    auto answer = std::make_shared<Answer>();
    std::weak_ptr<CTSubtitleEmbedder> weak = weak_from_this();
    MainQueue::main().post([weak, answer, reasons] {
        bool goOn = false;
        if (auto self = weak.lock())
            goOn = !self->m_cancelled && self->continueDespiteDamage(reasons);
        const std::lock_guard lock(answer->mutex);
        answer->done = true;
        answer->goOn = goOn;
        answer->ready.notify_all();
    });
    std::unique_lock lock(answer->mutex);
    while (!answer->done && !m_cancelled)
        answer->ready.wait_for(lock, std::chrono::milliseconds(100));
    return answer->done && answer->goOn;
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
        // An empty filler is left to the muxer: it ends every sample with an empty one at its
        // end time, and starts a track that begins late with one at 0, so the track comes out
        // the same; written by us as well, each filler would follow an empty sample of no
        // duration.
        if (sample->text.isEmpty() && !sample->payload.endsWith("frcd"))
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

    // For tests that stop a run midway (a kill, a signal): a pause after every packet.
    static const int packetDelay = qEnvironmentVariableIntValue("CAPTORA_EMBED_PACKET_DELAY_MS");
    std::vector<int64_t> packetsRead(in->nb_streams, 0);
    QStringList damage;
    LibAv::ReadErrors readErrors;
    while (!m_cancelled && !writeError) {
        int result = av_read_frame(in, packet.get());
        if (result == AVERROR_EOF)
            break;
        if (result < 0) {
            logLine(u"the reader failed: %1"_s.arg(LibAv::errorText(result)));
            damage.append(u"reading stopped: %1"_s.arg(LibAv::errorText(result)));
            break;
        }
        const int index = packet->stream_index;
        if (index < 0 || index >= int(run->streamMap.size()) || run->streamMap[size_t(index)] < 0) {
            av_packet_unref(packet.get());
            continue;
        }
        ++packetsRead[size_t(index)];
        if (packetDelay > 0)
            std::this_thread::sleep_for(std::chrono::milliseconds(packetDelay));
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
    if (!m_cancelled && !writeError && std::strcmp(in->iformat->name, "mov,mp4,m4a,3gp,3g2,mj2") == 0) {
        for (unsigned i = 0; i < in->nb_streams; ++i) {
            if (run->streamMap[i] >= 0 && packetsRead[i] < avformat_index_get_entries_count(in->streams[i])) {
                const QString reason =
                    u"Movie-Track: %1 ends after %2 of its %3 samples"_s.arg(LibAv::trackIDOf(in->streams[i]))
                        .arg(packetsRead[i])
                        .arg(avformat_index_get_entries_count(in->streams[i]));
                logLine(u"the reader failed: %1"_s.arg(reason));
                damage.append(reason);
                break;
            }
        }
    }
    // What the demuxer complained about while reading on (a broken cluster is skipped with
    // only such a message), and picture tracks that gave nothing at all.
    for (const QString &message : readErrors.messages())
        damage.append(message);
    for (unsigned i = 0; i < in->nb_streams; ++i)
        if (run->streamMap[i] >= 0 && packetsRead[i] == 0 &&
            LibAv::kindOf(in->streams[i]) == MovieTrack::Kind::Video)
            damage.append(u"Movie-Track: %1 gave no picture"_s.arg(LibAv::trackIDOf(in->streams[i])));
    if (!damage.isEmpty() && !m_cancelled && !writeError && !askFromWriterAboutDamage(damage))
        readError = AVERROR_INVALIDDATA;
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
            self->m_status->setMessage(QCoreApplication::translate("CTSubtitleEmbedder", "Optimizing"));
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
    QString failureText = failed ? LibAv::errorText(failure) : QString();
    if (readError && !writeError && !damage.isEmpty())
        failureText = damage.join(u"; "_s);
    // What the muxer has no place for goes into the finished index; then the complete file
    // takes its name, unless someone else's file has taken it meanwhile.
    QString failureMessage = QCoreApplication::translate("CTSubtitleEmbedder", "Failed: Broken Data");
    if (!failed && !cancelled) {
        const QString boxesFailed = MovieBoxes::editIndex(run->temporaryPath, [&](MovieBoxes::Box &moov) {
            addIndexBoxes(moov, out, run->characteristics, run->languageTags, run->rating,
                          run->extendedRating);
        });
        if (!boxesFailed.isEmpty()) {
            failed = true;
            failureText = boxesFailed;
        }
    }
    if (!failed && !cancelled) {
        const int code = renameWithoutReplacing(run->temporaryPath, run->outputPath);
        if (code != 0) {
            failed = true;
            failureText = QString::fromLocal8Bit(std::strerror(code));
            if (code == EEXIST)
                failureMessage = QCoreApplication::translate("CTSubtitleEmbedder", "Failed: %1 exists")
                                     .arg(QFileInfo(run->outputPath).fileName());
        }
    }
    if (failed || cancelled)
        QFile::remove(run->temporaryPath);
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
                    QCoreApplication::translate("CTSubtitleEmbedder",
                                                "Audio-Video engine gave back the following error:\n%1")
                        .arg(failureText));
                self->m_status->setMessage(QString());
                if (self->m_delegate)
                    self->m_delegate->subtitleEmbedderDidFinish(self.get(), false);
            }
        });
    }
    // 4 and 5: the final state; after a success this -1 follows the 3 on purpose.
    MainQueue::main().post([weak, failed, failureText, failureMessage] {
        auto self = weak.lock();
        if (!self)
            return;
        if (!failed) {
            self->m_status->setProgress(ProgressStatus::Stopped);
            self->m_status->setMessage(QString());
        } else {
            self->m_status->setProgress(ProgressStatus::Failed);
            self->m_status->setErrorMessage(
                QCoreApplication::translate("CTSubtitleEmbedder",
                                            "Audio-Video engine gave back the following error:\n%1")
                    .arg(failureText));
            self->m_status->setMessage(failureMessage);
        }
        self->m_isWorking = false;
        self->m_ended = true;
        if (self->m_thread.joinable())
            self->m_thread.join();
    });
}
