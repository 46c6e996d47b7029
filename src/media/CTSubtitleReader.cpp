#include "CTSubtitleReader.h"

#include "CTFileHelper.h"
#include "EncodingTable.h"
#include "Log.h"
#include "TimedTextSamples.h"
#include "VHVideoText.h"

#include <QFileInfo>

using namespace Qt::StringLiterals;

const QString CTSubtitleReader::TaggedCharacteristicKey = u"tagc"_s;
const QString CTSubtitleReader::TranscribesSpokenDialog = u"public.accessibility.transcribes-spoken-dialog"_s;
const QString CTSubtitleReader::DescribesMusicAndSound = u"public.accessibility.describes-music-and-sound"_s;

CTSubtitleReader::~CTSubtitleReader() = default;

std::unique_ptr<CTSubtitleReader> CTSubtitleReader::initForFile(const QString &path, double fps,
                                                                double duration)
{
    std::unique_ptr<CTSubtitleReader> reader(new CTSubtitleReader);
    if (!reader->init(path, fps, duration))
        return nullptr;
    return reader;
}

bool CTSubtitleReader::init(const QString &path, double fps, double duration)
{
    m_fps = fps;
    m_duration = duration;
    std::optional<SubtitleList> cues = subtitlesFromFile(path, fps, duration);
    if (!cues || cues->isEmpty())
        return false;
    m_subtitles = std::move(*cues);
    if (!testSubtitle())
        return false;

    qsizetype forced = 0;
    for (const SubtitlePtr &cue : std::as_const(m_subtitles))
        forced += cue->forced();
    // Decided before the gap filling, so the empty fillers never count.
    if (forced > 0 && forced == m_subtitles.size())
        m_displayFlags = TimedText::AllSamplesForced;
    else if (forced > 0)
        m_displayFlags = TimedText::SomeSamplesForced;
    else
        m_displayFlags = 0;

    m_index = 0;
    setupFormatDescription();

    // movie.en.srt: the language is the extension of the name without its extension.
    QString language = CTFileHelper::pathExtension(CTFileHelper::stringByDeletingPathExtension(path));
    if (language.size() >= 3) {
        const QString locale = CTFileHelper::localeForLanguageCode(language);
        if (!locale.isEmpty())
            language = locale;
    }
    m_languageCode = language;

    setupMetadata();
    completeSubtitles();
    return true;
}

std::optional<SubtitleList> CTSubtitleReader::subtitlesFromFile(const QString &path, double fps, double)
{
    return VHSubtitle::subtitlesFromFileAtURL(path, fps);
}

void CTSubtitleReader::setupFormatDescription()
{
    m_formatDescription = TimedText::tx3gSampleDescription(m_displayFlags);
}

void CTSubtitleReader::setupMetadata()
{
    m_metadata = {{TaggedCharacteristicKey, TranscribesSpokenDialog}};
    if (m_isSDH)
        m_metadata.append({TaggedCharacteristicKey, DescribesMusicAndSound});
}

bool CTSubtitleReader::testSubtitle()
{
    // Without a frame rate no frame is added; without a duration nothing lies beyond it.
    const double frame = m_fps > 0 ? 1.0 / m_fps : 0.0;
    const bool hasDuration = m_duration > 0;
    double lastEnd = 0.0;
    // Kept cues are moved down over the dropped ones in one pass: removing each dropped cue
    // from the list on its own would move the whole rest of the list every time.
    qsizetype kept = 0;
    for (qsizetype i = 0; i < m_subtitles.size(); ++i) {
        VHSubtitle &cue = *m_subtitles[i];
        if (hasDuration && cue.start() > m_duration)
            continue;
        // Cues beginning within one frame after the previous end are moved onto it.
        if (lastEnd + frame >= cue.start())
            cue.replaceStart(lastEnd, cue.end() - (cue.start() - lastEnd));
        if (cue.start() > cue.end()) {
            logLine(u"Warning: Problem saving subtitle, negative duration for: %1"_s.arg(cue.description()));
            return false;
        }
        if (lastEnd > cue.start()) {
            logLine(u"Warning: Problem saving subtitle, starts before last subtitle (%1) : %2"_s.arg(
                VHSubtitle::formatedTime(lastEnd), cue.description()));
            return false;
        }
        if (hasDuration && cue.end() > m_duration)
            cue.replaceStart(cue.start(), m_duration);
        const double end = cue.end();
        if (cue.start() + frame > cue.end()) {
            logLine(u"Warning: Zero duration subtitle %1"_s.arg(cue.description()));
        } else {
            if (kept != i)
                m_subtitles[kept] = std::move(m_subtitles[i]);
            ++kept;
        }
        lastEnd = end;
    }
    m_subtitles.resize(kept);
    return true;
}

void CTSubtitleReader::completeSubtitles()
{
    SubtitleList filled;
    filled.reserve(m_subtitles.size() * 2);
    double lastEnd = 0.0;
    for (const SubtitlePtr &cue : std::as_const(m_subtitles)) {
        if (cue->start() > lastEnd)
            filled.append(VHSubtitle::create(u""_s, lastEnd, cue->start(), false));
        filled.append(cue);
        lastEnd = cue->end();
    }
    m_subtitles = std::move(filled);
}

QByteArray CTSubtitleReader::copyFormatDescription() const
{
    return m_formatDescription;
}

TextSample CTSubtitleReader::copySampleBufferFor(const VHSubtitle &cue) const
{
    TextSample sample;
    sample.payload = TimedText::tx3gSamplePayload(cue.string(), cue.forced());
    sample.start = TimedText::toTimeScale600(cue.start());
    sample.duration = TimedText::toTimeScale600(cue.duration());
    sample.startSeconds = cue.start();
    sample.endSeconds = cue.end();
    sample.text = cue.string();
    return sample;
}

std::optional<TextSample> CTSubtitleReader::copyNextSampleBuffer()
{
    if (m_index >= m_subtitles.size())
        return std::nullopt;
    return copySampleBufferFor(*m_subtitles[m_index++]);
}

std::optional<double> CTSubtitleReader::nextSampleStart() const
{
    if (m_index >= m_subtitles.size())
        return std::nullopt;
    return m_subtitles[m_index]->start();
}

std::unique_ptr<CTTextReader> CTTextReader::initForFile(const QString &path, double fps, double duration)
{
    std::unique_ptr<CTTextReader> reader(new CTTextReader);
    if (!reader->init(path, fps, duration))
        return nullptr;
    return reader;
}

std::optional<SubtitleList> CTTextReader::subtitlesFromFile(const QString &path, double, double duration)
{
    return VHVideoText::videoTextsFromFileAtURL(path, duration, Encodings::UTF8, false);
}

void CTTextReader::setupFormatDescription()
{
    // Built during initialisation, before anyone can set the size: the box is 0 by 0 then.
    m_formatDescription = TimedText::qtTextSampleDescription(qint16(m_size.width()), qint16(m_size.height()));
}

void CTTextReader::setupMetadata()
{
    m_metadata.clear();
}

QByteArray CTTextReader::copyFormatDescription() const
{
    return m_formatDescription;
}

QByteArray CTTextReader::createQTTextBlockBuffer(const QString &string)
{
    return TimedText::qtTextSamplePayload(string);
}

TextSample CTTextReader::copySampleBufferFor(const VHSubtitle &cue) const
{
    TextSample sample;
    sample.payload = createQTTextBlockBuffer(cue.string());
    sample.start = TimedText::toTimeScale600(cue.start());
    sample.duration = TimedText::toTimeScale600(cue.duration());
    sample.startSeconds = cue.start();
    sample.endSeconds = cue.end();
    sample.text = cue.string();
    return sample;
}
