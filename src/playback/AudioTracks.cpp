// The libmpv player's tracks: the track list, the audio-track menu, and the codec rules
// that label its items and decide which tracks may be chosen without a warning.
#include "VHMovieController.h"

#include "LocaleNames.h"
#include "Log.h"
#include "Prompter.h"

#include <QHash>
#include <QLocale>

#include <mpv/client.h>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

struct CodeRule
{
    QString label;
    bool safe;
};

const QHash<QString, CodeRule> &codeRules()
{
    static const QHash<QString, CodeRule> rules = {
        {u"aac "_s, {u"AAC"_s, true}},
        {u"ac-3"_s, {u"AC3"_s, false}},
        {u"cac3"_s, {u"AC3"_s, false}},
        {u"aes3"_s, {u"AES3"_s, false}},
        {u"alac"_s, {u"Apple Loss Less"_s, true}},
        {u"alaw"_s, {u"ALaw"_s, false}},
        {u"ulaw"_s, {u"ULaw"_s, false}},
        {u"lpcm"_s, {u"PCM"_s, true}},
        {u"ima4"_s, {u"MA4"_s, true}},
        {u".mp1"_s, {u"MP1"_s, true}},
        {u".mp2"_s, {u"MP2"_s, true}},
        {u".mp3"_s, {u"MP3"_s, true}},
        {u"MAC3"_s, {u"MACE3"_s, false}},
        {u"MAC6"_s, {u"MACE6"_s, false}},
    };
    return rules;
}

// The value of `key` in an mpv map node, or null.
const mpv_node *mapValue(const mpv_node &map, const char *key)
{
    if (map.format != MPV_FORMAT_NODE_MAP)
        return nullptr;
    for (int i = 0; i < map.u.list->num; ++i) {
        if (qstrcmp(map.u.list->keys[i], key) == 0)
            return &map.u.list->values[i];
    }
    return nullptr;
}

QString nodeString(const mpv_node &map, const char *key)
{
    const mpv_node *value = mapValue(map, key);
    return value && value->format == MPV_FORMAT_STRING ? QString::fromUtf8(value->u.string) : QString();
}

double nodeNumber(const mpv_node &map, const char *key)
{
    const mpv_node *value = mapValue(map, key);
    if (!value)
        return 0;
    if (value->format == MPV_FORMAT_DOUBLE)
        return value->u.double_;
    if (value->format == MPV_FORMAT_INT64)
        return double(value->u.int64);
    return 0;
}

bool nodeFlag(const mpv_node &map, const char *key)
{
    const mpv_node *value = mapValue(map, key);
    return value && value->format == MPV_FORMAT_FLAG && value->u.flag;
}

// The menu's name of a track's language: its display name in the interface language.
QString languageName(const QString &lang)
{
    if (lang.isEmpty())
        return {};
    QString name = LocaleNames::displayName(lang);
    if (name.isEmpty()) {
        // Three-letter codes ("eng") become the two-letter ones ICU names.
        const QLocale::Language language = QLocale::codeToLanguage(lang);
        if (language != QLocale::AnyLanguage)
            name = LocaleNames::displayName(QLocale::languageToCode(language, QLocale::ISO639Part1));
    }
    return name.isEmpty() ? lang : name;
}

} // namespace

QString VHMovieController::audioTypeForCode(const QString &code)
{
    const auto it = codeRules().constFind(code);
    return it == codeRules().cend() ? QString(u""_s) : it->label;
}

bool VHMovieController::isSaveAudioCode(const QString &code)
{
    const auto it = codeRules().constFind(code);
    return it != codeRules().cend() && it->safe;
}

QString VHMovieController::audioCodeForCodecName(const QString &codecName)
{
    // FFmpeg's codec names, as mpv reports them in its track list.
    static const QHash<QString, QString> codes = {
        {u"aac"_s, u"aac "_s},      {u"aac_latm"_s, u"aac "_s},  {u"ac3"_s, u"ac-3"_s},
        {u"eac3"_s, u"ec-3"_s},     {u"s302m"_s, u"aes3"_s},     {u"alac"_s, u"alac"_s},
        {u"pcm_alaw"_s, u"alaw"_s}, {u"pcm_mulaw"_s, u"ulaw"_s}, {u"adpcm_ima_qt"_s, u"ima4"_s},
        {u"mp1"_s, u".mp1"_s},      {u"mp1float"_s, u".mp1"_s},  {u"mp2"_s, u".mp2"_s},
        {u"mp2float"_s, u".mp2"_s}, {u"mp3"_s, u".mp3"_s},       {u"mp3float"_s, u".mp3"_s},
        {u"mace3"_s, u"MAC3"_s},    {u"mace6"_s, u"MAC6"_s},
    };
    if (const auto it = codes.constFind(codecName); it != codes.cend())
        return *it;
    // Linear PCM in any sample layout (pcm_s16le, pcm_f32be, ...), but not the companded
    // ones above.
    if (codecName.startsWith(u"pcm_"_s))
        return u"lpcm"_s;
    // Codecs the table does not know keep their own name, which no rule accepts.
    return codecName;
}

void VHMovieController::readTrackList(const mpv_node &list)
{
    if (list.format != MPV_FORMAT_NODE_ARRAY || (m_reopening && list.u.list->num == 0))
        return;
    m_tracks.clear();
    double largestFps = 0;
    for (int i = 0; i < list.u.list->num; ++i) {
        const mpv_node &entry = list.u.list->values[i];
        Track track;
        track.id = qint64(nodeNumber(entry, "id"));
        track.type = nodeString(entry, "type");
        track.lang = nodeString(entry, "lang");
        track.title = nodeString(entry, "title");
        track.codec = nodeString(entry, "codec");
        track.selected = nodeFlag(entry, "selected");
        track.albumArt = nodeFlag(entry, "albumart");
        track.width = int(nodeNumber(entry, "demux-w"));
        track.height = int(nodeNumber(entry, "demux-h"));
        track.fps = nodeNumber(entry, "demux-fps");
        if (track.type == u"video"_s && !track.albumArt)
            largestFps = std::max(largestFps, track.fps);
        m_tracks << track;
    }
    // The largest nominal rate among the video tracks.
    if (largestFps > 0)
        m_fps = largestFps;
}

double VHMovieController::aspectRatio() const
{
    for (auto it = m_tracks.crbegin(); it != m_tracks.crend(); ++it) {
        if (it->type == u"video"_s && !it->albumArt)
            return it->height > 0 ? double(it->width) / it->height : 0;
    }
    return 0;
}

QList<VHMovieController::Track> VHMovieController::audioTracks() const
{
    QList<Track> audio;
    for (const Track &track : m_tracks) {
        if (track.type == u"audio"_s)
            audio << track;
    }
    return audio;
}

QList<AudioTrackItem> VHMovieController::audioMenuItems() const
{
    QList<AudioTrackItem> items;
    const QList<Track> audio = audioTracks();
    const int current = audioTrack();
    for (qsizetype i = 0; i < audio.size(); ++i) {
        QString name = languageName(audio[i].lang);
        if (name.isEmpty())
            name = audio[i].title.isEmpty() ? tr("Track %1").arg(i + 1) : audio[i].title;
        const QString type = audioTypeForCode(audioCodeForCodecName(audio[i].codec));
        items << AudioTrackItem{u"%1\t\t%2"_s.arg(name, type), int(i), i == current};
    }
    return items;
}

int VHMovieController::audioTrack() const
{
    const QList<Track> audio = audioTracks();
    for (qsizetype i = 0; i < audio.size(); ++i) {
        if (audio[i].selected)
            return int(i);
    }
    return 0;
}

void VHMovieController::setAudioTrack(int index)
{
    const QList<Track> audio = audioTracks();
    if (audio.isEmpty())
        return;
    // The menu passes only indexes of its items; anything else addresses no track.
    if (index < 0 || index >= audio.size()) {
        logLine(u"Error: There is no audio track %1"_s.arg(index));
        return;
    }
    const Track &track = audio[index];
    if (!isSaveAudioCode(audioCodeForCodecName(track.codec))) {
        Prompt prompt;
        prompt.message = tr("The audio track you selected may not play on your system or even make the app "
                            "crash. \nDo you want to continue?");
        prompt.buttons = {tr("Use Unsafe Audio Track"), tr("Cancel")};
        if (Prompter::shared().ask(prompt).button != 0)
            return;
    }
    qint64 id = track.id;
    mpv_set_property(m_mpv.get(), "aid", MPV_FORMAT_INT64, &id);
    // The track list reports the choice later; the menu shows it at once.
    for (Track &t : m_tracks) {
        if (t.type == u"audio"_s)
            t.selected = t.id == id;
    }
}
