#pragma once

// Internal to the media module: the state of one embedding run, handed from its set-up on
// the main thread (CTSubtitleEmbedder.cpp) to its writer thread (EmbeddingWriter.cpp).
#include "CTSubtitleEmbedder.h"
#include "CTSubtitleReader.h"
#include "LibAv.h"

#include <QStringList>

#include <cerrno>
#include <memory>
#include <sys/stat.h>
#include <unistd.h>
#include <vector>

namespace Embedding {

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
int closeOutputFile(AVFormatContext *context, OutputFile &file);

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

// The temporary file an output is written to: ".<output name>.<pid>.part" beside it.
QString temporaryPathFor(const QString &outputPath);
// Removes the temporaries that runs killed before their end left beside `outputPath`: those
// whose process is gone and whose lock nobody holds.
void removeStaleTemporaries(const QString &outputPath);
// Renames `from` to `to` unless `to` exists; errno's value on failure, else 0.
int renameWithoutReplacing(const QString &from, const QString &to);

// Whether a subtitle codec's packets are plain UTF-8 text that can become tx3g samples.
inline bool isPlainTextSubtitle(AVCodecID codec)
{
    return codec == AV_CODEC_ID_SUBRIP || codec == AV_CODEC_ID_TEXT;
}

// An upper bound of the index size the muxer will write, or 0 when a sample count is not
// known in advance (see EmbeddingWriter.cpp).
int64_t indexBound(const AVFormatContext *in, const AVFormatContext *out, const std::vector<int> &streamMap,
                   int64_t textSamples);

} // namespace Embedding

// Everything the writer thread needs; set up on the main thread, then owned by the writer.
struct CTSubtitleEmbedder::Run
{
    LibAv::Input input;
    Embedding::Output output;
    std::vector<int> streamMap; // input stream index → output stream index, -1: not copied
    std::vector<int> slotOf;    // input stream index → progress slot (0: none)
    std::vector<bool> toTx3g;   // input stream carries plain text that becomes tx3g
    struct Source
    {
        std::unique_ptr<CTSubtitleReader> reader;
        int stream = -1;
    };
    std::vector<Source> sources;
    std::vector<int> coverStreams; // input streams of cover art (attached pictures)
    // What the muxer has no place for, written into the index afterwards: per output stream
    // the tagged characteristics ('tagc') and the extended language tag ('elng') of the new
    // subtitle tracks; the movie's content rating items.
    std::vector<QStringList> characteristics;
    std::vector<QString> languageTags;
    QByteArray rating;         // 'rtng': the movie's "rating"
    QByteArray extendedRating; // '----' iTunEXTC: the movie's content rating text
    QString outputPath;
    QString temporaryPath;
    Embedding::OutputFile file;
    int lockFd = -1; // holds the temporary's lock until the run ends

    ~Run()
    {
        Embedding::closeOutputFile(output.get(), file);
        if (lockFd >= 0)
            ::close(lockFd);
    }
};
