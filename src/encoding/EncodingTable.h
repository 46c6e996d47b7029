#pragma once

#include <QtGlobal>

// Text encodings are named by fixed numbers: the identifiers of the encoding catalogue,
// also written into rules files ("nsstring") and settings. They are the string-encoding
// numbers of the platform the program first ran on, so files and settings written there
// keep their meaning: small numbers for the built-in encodings, and 0x80000000 | n for an
// encoding that platform knew only by its lower-level number n. 0 means "none given".
using EncodingId = quint32;

namespace Encodings {
inline constexpr EncodingId None = 0;
inline constexpr EncodingId ASCII = 1;
inline constexpr EncodingId NeXTSTEP = 2;
inline constexpr EncodingId JapaneseEUC = 3;
inline constexpr EncodingId UTF8 = 4;
inline constexpr EncodingId ISOLatin1 = 5;
inline constexpr EncodingId NonLossyASCII = 7;
inline constexpr EncodingId ShiftJIS = 8; // code page 932
inline constexpr EncodingId ISOLatin2 = 9;
inline constexpr EncodingId UTF16 = 10; // byte order from the mark
inline constexpr EncodingId WindowsCP1251 = 11;
inline constexpr EncodingId WindowsCP1252 = 12;
inline constexpr EncodingId WindowsCP1253 = 13;
inline constexpr EncodingId WindowsCP1254 = 14;
inline constexpr EncodingId WindowsCP1250 = 15;
inline constexpr EncodingId ISO2022JP = 21;
inline constexpr EncodingId MacRoman = 30;

constexpr EncodingId fromLowLevel(quint32 n)
{
    return 0x80000000u | n;
}

inline constexpr EncodingId UTF7 = fromLowLevel(0x04000100);
inline constexpr EncodingId UTF16BE = fromLowLevel(0x10000100);
inline constexpr EncodingId UTF16LE = fromLowLevel(0x14000100);
inline constexpr EncodingId UTF32 = fromLowLevel(0x0c000100);
inline constexpr EncodingId UTF32BE = fromLowLevel(0x18000100);
inline constexpr EncodingId UTF32LE = fromLowLevel(0x1c000100);

inline constexpr EncodingId MacJapanese = fromLowLevel(0x01);
inline constexpr EncodingId MacChineseTrad = fromLowLevel(0x02);
inline constexpr EncodingId MacKorean = fromLowLevel(0x03);
inline constexpr EncodingId MacHebrew = fromLowLevel(0x05);
inline constexpr EncodingId MacGreek = fromLowLevel(0x06);
inline constexpr EncodingId MacCyrillic = fromLowLevel(0x07);
inline constexpr EncodingId MacChineseSimp = fromLowLevel(0x19);
inline constexpr EncodingId MacCentralEurRoman = fromLowLevel(0x1d);
inline constexpr EncodingId MacTurkish = fromLowLevel(0x23);
inline constexpr EncodingId MacUkrainian = fromLowLevel(0x98);

inline constexpr EncodingId ISOLatin3 = fromLowLevel(0x0203);
inline constexpr EncodingId ISOLatin4 = fromLowLevel(0x0204);
inline constexpr EncodingId ISOLatinCyrillic = fromLowLevel(0x0205);
inline constexpr EncodingId ISOLatinArabic = fromLowLevel(0x0206);
inline constexpr EncodingId ISOLatinGreek = fromLowLevel(0x0207);
inline constexpr EncodingId ISOLatinHebrew = fromLowLevel(0x0208);
inline constexpr EncodingId ISOLatin5 = fromLowLevel(0x0209);
inline constexpr EncodingId ISOLatin6 = fromLowLevel(0x020A);
inline constexpr EncodingId ISOLatin7 = fromLowLevel(0x020D);
inline constexpr EncodingId ISOLatin9 = fromLowLevel(0x020F);
inline constexpr EncodingId ISOLatin10 = fromLowLevel(0x0210);

inline constexpr EncodingId DOSGreek = fromLowLevel(0x0405);          // code page 737
inline constexpr EncodingId DOSLatin1 = fromLowLevel(0x0410);         // code page 850
inline constexpr EncodingId DOSLatin2 = fromLowLevel(0x0411);         // code page 852
inline constexpr EncodingId DOSRussian = fromLowLevel(0x041B);        // code page 866
inline constexpr EncodingId DOSHebrew = fromLowLevel(0x0417);         // code page 862
inline constexpr EncodingId DOSThai = fromLowLevel(0x041D);           // code page 874
inline constexpr EncodingId DOSChineseSimplif = fromLowLevel(0x0421); // code page 936
inline constexpr EncodingId DOSKorean = fromLowLevel(0x0422);         // code page 949
inline constexpr EncodingId DOSChineseTrad = fromLowLevel(0x0423);    // code page 950

inline constexpr EncodingId WindowsHebrew = fromLowLevel(0x0505);      // code page 1255
inline constexpr EncodingId WindowsArabic = fromLowLevel(0x0506);      // code page 1256
inline constexpr EncodingId WindowsBalticRim = fromLowLevel(0x0507);   // code page 1257
inline constexpr EncodingId WindowsVietnamese = fromLowLevel(0x0508);  // code page 1258
inline constexpr EncodingId WindowsKoreanJohab = fromLowLevel(0x0510); // code page 1361

inline constexpr EncodingId GB18030 = fromLowLevel(0x0632);
inline constexpr EncodingId EUCCN = fromLowLevel(0x0930);
inline constexpr EncodingId EUCKR = fromLowLevel(0x0940);
inline constexpr EncodingId KOI8R = fromLowLevel(0x0A02);
inline constexpr EncodingId Big5 = fromLowLevel(0x0A03);
inline constexpr EncodingId Big5HKSCS = fromLowLevel(0x0A06);
inline constexpr EncodingId KOI8U = fromLowLevel(0x0A08);
inline constexpr EncodingId NeXTSTEPJapanese = fromLowLevel(0x0B02);

// The number earlier versions gave "Cyrillic (DOS)" (code page 866). On the first platform
// it names code page 855, which the catalogue does not offer; settings and rules files that
// hold it mean code page 866.
inline constexpr EncodingId LegacyDOSRussian = fromLowLevel(0x0413);

// The number an encoding is known by now, for a number read from settings or rules files.
constexpr EncodingId canonical(EncodingId id)
{
    return id == LegacyDOSRussian ? DOSRussian : id;
}
} // namespace Encodings

// How the text codec converts one numbered encoding.
enum class ConverterKind {
    Utf8,          // Qt's strict UTF-8 codec
    Icu,           // an ICU converter by name
    Iconv,         // a glibc iconv converter by name (where ICU has none)
    OwnTable,      // one of our single-byte tables (where neither library has one)
    NonLossyAscii, // ASCII with \uXXXX escapes for everything else
    Utf16WithMark, // UTF-16, byte order from a leading mark
    Utf32WithMark, // UTF-32, byte order from a leading mark
};

struct EncodingInfo
{
    EncodingId id;
    ConverterKind kind;
    const char *converter; // ICU or iconv name; the table name for OwnTable
};

// The one table from encoding numbers to converters; nullptr for a number it lacks.
const EncodingInfo *encodingInfo(EncodingId id);
