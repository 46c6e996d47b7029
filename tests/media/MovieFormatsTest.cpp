// What an embedding carries besides the picture: every codec MP4 allows, cover art and the
// content rating, and the boxes the muxer has no place for ('tagc', 'elng'), checked with
// ffprobe, with our own box reader and by reading the tracks back with our extractor.
#include "CTSubtitleEmbedder.h"
#include "CTSubtitleExtractor.h"
#include "Log.h"
#include "MovieBoxes.h"
#include "MovieTestSupport.h"
#include "TestSupport.h"

#include <QFile>
#include <QFileInfo>
#include <QJsonArray>
#include <QProcess>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {
const QList<TestCue> kCues = {{0.2, 0.5, u"Hello"_s}, {0.75, 0.95, u"World"_s}};

std::shared_ptr<CTSubtitleEmbedder> embed(const QString &movie, RecordingEmbedderDelegate &delegate)
{
    std::shared_ptr<const MovieAsset> asset = MovieAsset::open(movie);
    EXPECT_TRUE(asset);
    auto embedder = CTSubtitleEmbedder::initWithAsset(asset, movie, asset ? asset->fps() : 0);
    embedder->setDelegate(&delegate);
    runToEnd(*embedder);
    return embedder;
}

// "type/codec/tag" of every stream.
QStringList codecsOf(const QJsonObject &probed)
{
    QStringList out;
    for (const QJsonValue &value : probed[u"streams"_s].toArray()) {
        const QJsonObject stream = value.toObject();
        out.append(stream[u"codec_type"_s].toString() + u'/' + stream[u"codec_name"_s].toString() + u'/' +
                   stream[u"codec_tag_string"_s].toString());
    }
    return out;
}

// Decodes the whole file: a wrong chunk offset shows up as decoding errors.
QByteArray decodingErrors(const QString &path)
{
    QProcess process;
    process.start(u"ffmpeg"_s, {u"-v"_s, u"error"_s, u"-i"_s, path, u"-f"_s, u"null"_s, u"-"_s});
    process.waitForFinished(60'000);
    return process.readAllStandardError();
}

// The boxes under every subtitle track: "trackID: type=payload" for tagc and elng.
QStringList subtitleTrackBoxes(const QString &path)
{
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly));
    const QByteArray bytes = file.readAll();
    const std::optional<QList<MovieBoxes::Box>> top = MovieBoxes::parseBoxes(bytes);
    EXPECT_TRUE(top);
    QStringList out;
    if (!top)
        return out;
    for (const MovieBoxes::Box &box : *top) {
        if (box.type != "moov")
            continue;
        for (const MovieBoxes::Box &trak : box.children) {
            if (trak.type != "trak" || MovieBoxes::handlerType(trak) != "sbtl")
                continue;
            const int id = MovieBoxes::trackID(trak);
            if (const MovieBoxes::Box *udta = trak.child("udta"))
                for (const MovieBoxes::Box &tagc : udta->children)
                    if (tagc.type == "tagc")
                        out.append(u"%1: tagc=%2"_s.arg(id).arg(QString::fromUtf8(tagc.payload)));
            if (const MovieBoxes::Box *mdia = trak.child("mdia")) {
                if (const MovieBoxes::Box *elng = mdia->child("elng"))
                    out.append(u"%1: elng=%2"_s.arg(id).arg(
                        QString::fromLatin1(elng->payload.mid(4)).remove(QChar(0))));
                // The extended tag follows the media header, where QuickTime readers look.
                if (mdia->children.size() > 1 && mdia->children[1].type == "elng")
                    out.append(u"%1: elng after mdhd"_s.arg(id));
            }
        }
    }
    return out;
}

QStringList extract(const QString &movie)
{
    RecordingExtractorDelegate delegate;
    auto extractor = CTSubtitleExtractor::initWithAsset(MovieAsset::open(movie), movie, nullptr);
    extractor->setDelegate(&delegate);
    extractor->extractSubtitles(true, false, false);
    waitForExtraction(delegate);
    QStringList names;
    for (const QString &path : extractor->queuedPaths())
        names.append(QFileInfo(path).fileName());
    return names;
}
} // namespace

// Codecs the narrow iPod muxer refused, all of which MP4 carries: HEVC (tagged 'hvc1' for
// Apple's players) from Matroska and from an iPhone-style QuickTime movie, MP3 from AVI,
// and Opus, AC-3, E-AC-3 and ALAC; the output keeps the M4V brand, the timed-text track,
// the chapters and the index in front.
TEST(EmbedderFormats, CarriesEveryCodecMP4Allows)
{
    TempDir dir;
    const QString srt = writeSubRip(dir.path(u"cues.srt"_s), kCues);
    const QString chapters =
        dir.write(u"chapters.txt"_s, ";FFMETADATA1\n[CHAPTER]\nTIMEBASE=1/1000\nSTART=0\n"
                                     "END=1000\ntitle=Only\n");
    const QStringList picture = {u"-f"_s, u"lavfi"_s, u"-i"_s, u"testsrc=d=1:s=64x48:r=10"_s};
    const QStringList sound = {u"-f"_s, u"lavfi"_s, u"-i"_s, u"sine=d=1"_s};
    const QStringList hevc = {u"-c:v"_s, u"libx265"_s, u"-x265-params"_s, u"log-level=none"_s};
    ffmpeg(
        picture + sound + sound + sound + sound + sound + QStringList{u"-i"_s, srt, u"-i"_s, chapters} +
        u"-map 0 -map 1 -map 2 -map 3 -map 4 -map 5 -map 6 -map_chapters 7"_s.split(u' ') + hevc +
        u"-c:a:0 libmp3lame -c:a:1 libopus -c:a:2 ac3 -c:a:3 eac3 -c:a:4 alac -c:s srt -metadata:s:s:0 language=eng"_s
            .split(u' ') +
        QStringList{dir.path(u"matroska.mkv"_s)});
    ffmpeg(picture + sound + hevc + u"-tag:v hvc1 -c:a aac -f mov"_s.split(u' ') +
           QStringList{dir.path(u"iphone.mov"_s)});
    ffmpeg(picture + sound + u"-c:v mpeg4 -c:a libmp3lame"_s.split(u' ') +
           QStringList{dir.path(u"old.avi"_s)});
    writeSubRip(dir.path(u"iphone.en.srt"_s), kCues);

    struct Case
    {
        QString movie;
        QStringList codecs;
    } cases[] = {
        {u"matroska.mkv"_s,
         {u"video/hevc/hvc1"_s, u"audio/mp3/mp4a"_s, u"audio/opus/Opus"_s, u"audio/ac3/ac-3"_s,
          u"audio/eac3/ec-3"_s, u"audio/alac/alac"_s, u"subtitle/mov_text/tx3g"_s, u"data/bin_data/text"_s}},
        {u"iphone.mov"_s, {u"video/hevc/hvc1"_s, u"audio/aac/mp4a"_s, u"subtitle/mov_text/tx3g"_s}},
        {u"old.avi"_s, {u"video/mpeg4/mp4v"_s, u"audio/mp3/mp4a"_s}},
    };
    for (const Case &c : cases) {
        LogCapture log;
        RecordingEmbedderDelegate delegate;
        const auto embedder = embed(dir.path(c.movie), delegate);
        ASSERT_EQ(delegate.successes, 1)
            << c.movie.toStdString() << " " << embedder->status()->errorMessage().toStdString();
        const QString output = embedder->outputMoviePath();
        const QJsonObject probed = probe(output);
        EXPECT_EQ(codecsOf(probed), c.codecs) << c.movie.toStdString();
        const QJsonObject tags = probed[u"format"_s].toObject()[u"tags"_s].toObject();
        EXPECT_EQ(tags[u"major_brand"_s].toString(), u"M4V "_s);
        EXPECT_EQ(decodingErrors(output), QByteArray()) << c.movie.toStdString();
        if (c.movie != u"old.avi"_s) {
            // Our extractor reads the text track back.
            const QStringList written = extract(output);
            ASSERT_EQ(written.size(), 1) << c.movie.toStdString();
            // Relative to the picture: the muxer moves every track alike when a sound
            // track's priming starts before 0.
            const double videoStart =
                probed[u"streams"_s].toArray()[0].toObject()[u"start_time"_s].toString().toDouble();
            const std::optional<SubtitleList> cues = VHSubtitle::subtitlesFromFileAtURL(dir.path(written[0]));
            ASSERT_TRUE(cues && cues->size() == 2) << c.movie.toStdString();
            EXPECT_EQ((*cues)[0]->string(), u"Hello"_s);
            EXPECT_NEAR((*cues)[0]->start() - videoStart, 0.2, 0.002) << c.movie.toStdString();
            EXPECT_NEAR((*cues)[1]->end() - videoStart, 0.95, 0.002) << c.movie.toStdString();
            QFile::remove(dir.path(written[0]));
        }
        QFile::remove(output);
    }

    // A codec MP4 cannot carry is named once, with its track.
    ffmpeg(picture + sound + u"-c:v libx264 -preset ultrafast -c:a pcm_s16le"_s.split(u' ') +
           QStringList{dir.path(u"pcm.mkv"_s)});
    LogCapture log(false);
    RecordingEmbedderDelegate delegate;
    const auto refused = embed(dir.path(u"pcm.mkv"_s), delegate);
    EXPECT_EQ(delegate.failures, 1);
    EXPECT_EQ(
        refused->status()->errorMessage(),
        u"Movie-Track: 2 cannot be written into an M4V movie: its codec pcm_s16le is not one MP4 can carry"_s);
    for (const QString &line : log.lines())
        EXPECT_FALSE(line.contains(u"pcm_s16le"_s)) << line.toStdString();
}

// Cover art and the content rating (iTunes 'rtng' and the 'iTunEXTC' rating text) go over
// with the movie's metadata.
TEST(EmbedderFormats, CarriesCoverArtAndContentRating)
{
    TempDir dir;
    const QString cover = dir.path(u"cover.png"_s);
    // Noise, so that the picture is larger than the room an index is given beyond its samples.
    ffmpeg({u"-f"_s, u"lavfi"_s, u"-i"_s, u"nullsrc=s=300x300,geq=random(1)*255:128:128"_s, u"-frames:v"_s,
            u"1"_s, cover});
    ASSERT_GT(QFileInfo(cover).size(), 100'000);
    const QString movie = dir.path(u"movie.mp4"_s);
    ffmpeg(
        clipInputs(1) + QStringList{u"-i"_s, cover} + u"-map 0 -map 1 -map 2"_s.split(u' ') + clipCodecs() +
        u"-c:v:1 copy -disposition:v:1 attached_pic -metadata title=Film -movflags +faststart"_s.split(u' ') +
        QStringList{movie});
    // ffmpeg writes no rating; the items are added to its metadata list as iTunes writes them.
    const QString added = MovieBoxes::editIndex(movie, [](MovieBoxes::Box &moov) {
        MovieBoxes::Box *ilst = moov.child("udta")->child("meta")->child("ilst");
        auto data = [](char type, const QByteArray &value) {
            return MovieBoxes::leaf("data", QByteArray("\0\0\0", 3) + type + QByteArray(4, '\0') + value)
                .serialize(0, nullptr);
        };
        const QByteArray full(4, '\0');
        ilst->children.append(MovieBoxes::leaf("rtng", data(21, QByteArray(1, 4))));
        ilst->children.append(MovieBoxes::leaf(
            "----", MovieBoxes::leaf("mean", full + "com.apple.iTunes").serialize(0, nullptr) +
                        MovieBoxes::leaf("name", full + "iTunEXTC").serialize(0, nullptr) +
                        data(1, "mpaa|PG-13|300|")));
    });
    ASSERT_EQ(added, QString());
    const QJsonObject source = probe(movie)[u"format"_s].toObject()[u"tags"_s].toObject();
    ASSERT_EQ(source[u"rating"_s].toString(), u"4"_s);
    ASSERT_EQ(source[u"iTunEXTC"_s].toString(), u"mpaa|PG-13|300|"_s);

    LogCapture log;
    RecordingEmbedderDelegate delegate;
    const auto embedder = embed(movie, delegate);
    ASSERT_EQ(delegate.successes, 1);
    for (const QString &line : log.lines())
        EXPECT_FALSE(line.contains(u"no media data to carry over"_s)) << line.toStdString();
    const QJsonObject probed = probe(embedder->outputMoviePath());
    const QJsonObject tags = probed[u"format"_s].toObject()[u"tags"_s].toObject();
    EXPECT_EQ(tags[u"title"_s].toString(), u"Film"_s);
    EXPECT_EQ(tags[u"rating"_s].toString(), u"4"_s);
    EXPECT_EQ(tags[u"iTunEXTC"_s].toString(), u"mpaa|PG-13|300|"_s);
    bool hasCover = false;
    for (const QJsonValue &value : probed[u"streams"_s].toArray()) {
        const QJsonObject stream = value.toObject();
        if (stream[u"disposition"_s].toObject()[u"attached_pic"_s].toInt() == 1) {
            hasCover = true;
            EXPECT_EQ(stream[u"codec_name"_s].toString(), u"png"_s);
        }
    }
    EXPECT_TRUE(hasCover);
    EXPECT_EQ(decodingErrors(embedder->outputMoviePath()), QByteArray());
}

// Every new subtitle track says that it transcribes spoken dialog (and, for SDH files, that
// it describes music and sound) and carries its extended language tag; the tags come back
// as the file names of extraction. Both ways of putting the index in front are covered:
// the room reserved for QuickTime inputs, and moving the media data for Matroska inputs.
TEST(EmbedderFormats, WritesAccessibilityCharacteristicsAndExtendedLanguageTags)
{
    for (const QString &container : {u"mp4"_s, u"mkv"_s}) {
        TempDir dir;
        const QString movie = dir.path(u"Film."_s + container);
        ffmpeg(clipInputs(1) + clipCodecs() + QStringList{movie});
        writeSubRip(dir.path(u"Film.pt_BR.srt"_s), kCues);
        writeSubRip(dir.path(u"Film.zh_Hant.srt"_s), kCues);
        writeSubRip(dir.path(u"Film.en.srt"_s), kCues);

        RecordingEmbedderDelegate delegate;
        const auto embedder = embed(movie, delegate);
        ASSERT_EQ(delegate.successes, 1) << embedder->status()->errorMessage().toStdString();
        const QString output = embedder->outputMoviePath();
        const QString dialog = u"public.accessibility.transcribes-spoken-dialog"_s;
        EXPECT_EQ(subtitleTrackBoxes(output),
                  (QStringList{u"3: tagc="_s + dialog, u"3: elng=en"_s, u"3: elng after mdhd"_s,
                               u"4: tagc="_s + dialog, u"4: elng=pt-BR"_s, u"4: elng after mdhd"_s,
                               u"5: tagc="_s + dialog, u"5: elng=zh-Hant"_s, u"5: elng after mdhd"_s}))
            << container.toStdString();
        EXPECT_EQ(decodingErrors(output), QByteArray()) << container.toStdString();
        // The languages come back as the files they came from.
        EXPECT_EQ(extract(output), (QStringList{u"Film-Output.en.srt"_s, u"Film-Output.pt_BR.srt"_s,
                                                u"Film-Output.zh_Hant.srt"_s}));
        EXPECT_EQ(cueLines(dir.path(u"Film-Output.pt_BR.srt"_s)),
                  (QStringList{u"0.200-0.500 Hello"_s, u"0.750-0.950 World"_s}));
    }
}
