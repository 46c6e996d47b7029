#pragma once

#include <QByteArray>
#include <QString>

#include <cstdint>
#include <optional>

// The bytes of timed-text samples and their sample descriptions, as they go into a movie
// file. Everything here is plain byte building, independent of the media libraries.
namespace TimedText {

// Text display flags of a subtitle track's sample description.
inline constexpr quint32 SomeSamplesForced = 0x40000000;
inline constexpr quint32 AllSamplesForced = 0x80000000 | SomeSamplesForced;

// One 3GPP timed-text sample: 16-bit big-endian length L, L bytes of UTF-8 text (L is the
// text's byte length modulo 65536, and only L bytes are copied), then for a forced cue an
// 8-byte "frcd" box.
QByteArray tx3gSamplePayload(const QString &text, bool forced);

// One QuickTime text sample (chapter titles): 16-bit big-endian length L, L bytes of UTF-16
// with a byte-order mark in the machine's byte order (FF FE and little-endian here), then a
// 12-byte "encd" box naming encoding 256 (Unicode).
QByteArray qtTextSamplePayload(const QString &text);

// What follows the data-reference index in a 'tx3g' sample entry, in the order the 3GPP
// sample entry has it: display flags, horizontal and vertical justification (0), background
// colour (opaque black), default text box (all 0), default style record (characters 0 to
// 0, font 1, face 0, size 255, opaque white) and an 'ftab' box with font 1 = "Sans-Serif".
// libavformat writes a mov_text stream's extradata at exactly this place.
QByteArray tx3gSampleDescription(quint32 displayFlags);

// What follows the data-reference index in a QuickTime 'text' sample entry: display flags
// 1 (do not display), justification 1, background black, default text box 0,0 to
// height,width, font 1, face 0, foreground white, no font name.
QByteArray qtTextSampleDescription(qint16 width, qint16 height);

// The text of one sample as the extractor reads it: a 16-bit big-endian length L (0 gives
// none), then L bytes that must be present, read as UTF-8 up to the first zero byte;
// invalid UTF-8 gives none. Boxes after the text are ignored.
std::optional<QString> stringFromSampleBytes(const QByteArray &data);

// Seconds to the 1/600 time base of text samples, rounded to the nearest unit.
qint64 toTimeScale600(double seconds);

} // namespace TimedText
