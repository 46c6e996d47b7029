// The audio codec rules of the player: labels for the audio-track menu and which codecs
// may be chosen without a warning.
#include "VHMovieController.h"

#include <QHash>

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
