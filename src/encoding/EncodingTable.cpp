#include "EncodingTable.h"

#include <algorithm>
#include <array>

namespace {
using namespace Encodings;
using K = ConverterKind;

// Rows of the catalogue first, then encodings only rules files name. Where a set has no
// converter of its own in ICU or iconv, the nearest one stands in for it:
// Mac Japanese reads as code page 932, Mac Simplified Chinese as EUC-CN (GB 2312),
// Mac Traditional Chinese as code page 950 (Big5), Mac Korean as EUC-KR, and NeXTSTEP
// Japanese, which was EUC-based, as EUC-JP. The Apple additions to those sets (a few
// symbols in the vendor rows) therefore fail to decode.
constexpr std::array kTable = {
    EncodingInfo{UTF7, K::Icu, "UTF-7"},
    EncodingInfo{UTF8, K::Utf8, "UTF-8"},
    EncodingInfo{UTF16, K::Utf16WithMark, "UTF-16"},
    EncodingInfo{UTF16BE, K::Icu, "UTF-16BE"},
    EncodingInfo{UTF16LE, K::Icu, "UTF-16LE"},
    EncodingInfo{UTF32, K::Utf32WithMark, "UTF-32"},
    EncodingInfo{UTF32BE, K::Icu, "UTF-32BE"},
    EncodingInfo{UTF32LE, K::Icu, "UTF-32LE"},
    EncodingInfo{ISOLatin1, K::Icu, "ISO-8859-1"},
    EncodingInfo{ISOLatin2, K::Icu, "ISO-8859-2"},
    EncodingInfo{ISOLatin3, K::Icu, "ISO-8859-3"},
    EncodingInfo{ISOLatin4, K::Icu, "ISO-8859-4"},
    EncodingInfo{ISOLatin5, K::Icu, "ISO-8859-9"},
    EncodingInfo{WindowsCP1252, K::Icu, "windows-1252"},
    EncodingInfo{WindowsCP1250, K::Icu, "windows-1250"},
    EncodingInfo{WindowsCP1254, K::Icu, "windows-1254"},
    EncodingInfo{MacRoman, K::Icu, "macintosh"},
    EncodingInfo{NeXTSTEP, K::OwnTable, "NeXTSTEP"},
    EncodingInfo{NonLossyASCII, K::NonLossyAscii, "non-lossy ASCII"},
    EncodingInfo{GB18030, K::Icu, "GB18030"},
    EncodingInfo{DOSChineseSimplif, K::Icu, "windows-936"},
    EncodingInfo{MacChineseSimp, K::Icu, "GB2312"},
    EncodingInfo{DOSChineseTrad, K::Icu, "windows-950"},
    EncodingInfo{MacChineseTrad, K::Icu, "windows-950"},
    EncodingInfo{DOSRussian, K::Icu, "IBM866"},
    EncodingInfo{ISOLatinCyrillic, K::Icu, "ISO-8859-5"},
    EncodingInfo{MacCyrillic, K::Icu, "x-mac-cyrillic"},
    EncodingInfo{WindowsCP1251, K::Icu, "windows-1251"},
    EncodingInfo{DOSGreek, K::Icu, "ibm-737"},
    EncodingInfo{ISOLatinGreek, K::Icu, "ISO-8859-7"},
    EncodingInfo{MacGreek, K::Icu, "x-mac-greek"},
    EncodingInfo{WindowsCP1253, K::Icu, "windows-1253"},
    EncodingInfo{DOSHebrew, K::Icu, "ibm-862"},
    EncodingInfo{ISOLatinHebrew, K::Icu, "ISO-8859-8"},
    EncodingInfo{MacHebrew, K::OwnTable, "MacHebrew"},
    EncodingInfo{WindowsHebrew, K::Icu, "windows-1255"},
    EncodingInfo{JapaneseEUC, K::Icu, "EUC-JP"},
    EncodingInfo{ISO2022JP, K::Icu, "ISO-2022-JP"},
    EncodingInfo{ShiftJIS, K::Icu, "windows-932"},
    EncodingInfo{MacJapanese, K::Icu, "windows-932"},
    EncodingInfo{NeXTSTEPJapanese, K::Icu, "EUC-JP"},
    EncodingInfo{MacKorean, K::Icu, "EUC-KR"},
    EncodingInfo{WindowsKoreanJohab, K::Iconv, "JOHAB"},

    EncodingInfo{ASCII, K::Icu, "US-ASCII"},
    EncodingInfo{KOI8R, K::Icu, "KOI8-R"},
    EncodingInfo{KOI8U, K::Icu, "KOI8-U"},
    EncodingInfo{MacUkrainian, K::Icu, "x-mac-cyrillic"},
    EncodingInfo{DOSKorean, K::Icu, "windows-949"},
    EncodingInfo{EUCKR, K::Icu, "EUC-KR"},
    EncodingInfo{EUCCN, K::Icu, "GB2312"},
    EncodingInfo{Big5, K::Icu, "Big5"},
    EncodingInfo{Big5HKSCS, K::Icu, "Big5-HKSCS"},
    EncodingInfo{WindowsArabic, K::Icu, "windows-1256"},
    EncodingInfo{ISOLatinArabic, K::Icu, "ISO-8859-6"},
    EncodingInfo{WindowsBalticRim, K::Icu, "windows-1257"},
    EncodingInfo{WindowsVietnamese, K::Icu, "windows-1258"},
    EncodingInfo{ISOLatin6, K::Icu, "ISO-8859-10"},
    EncodingInfo{ISOLatin7, K::Icu, "ISO-8859-13"},
    EncodingInfo{ISOLatin9, K::Icu, "ISO-8859-15"},
    EncodingInfo{ISOLatin10, K::Iconv, "ISO-8859-16"},
    EncodingInfo{DOSLatin1, K::Icu, "IBM850"},
    EncodingInfo{DOSLatin2, K::Icu, "IBM852"},
    EncodingInfo{DOSThai, K::Icu, "windows-874"},
    EncodingInfo{MacCentralEurRoman, K::Icu, "x-mac-centraleurroman"},
    EncodingInfo{MacTurkish, K::Icu, "x-mac-turkish"},
};
} // namespace

const EncodingInfo *encodingInfo(EncodingId id)
{
    id = Encodings::canonical(id);
    const auto it =
        std::find_if(kTable.begin(), kTable.end(), [id](const EncodingInfo &e) { return e.id == id; });
    return it == kTable.end() ? nullptr : &*it;
}
