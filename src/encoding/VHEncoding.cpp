#include "VHEncoding.h"

using namespace Qt::StringLiterals;

VHEncoding::VHEncoding(const QString &name, EncodingId codePage, bool separator)
    : m_name(name)
    , m_codePage(codePage)
    , m_separator(separator)
{}

VHEncoding VHEncoding::encodingWithName(const QString &name, EncodingId codePage)
{
    return VHEncoding(name, codePage, false);
}

VHEncoding VHEncoding::separator()
{
    return VHEncoding(QString(), Encodings::None, true);
}

const QList<VHEncoding> &VHEncoding::catalogue()
{
    using namespace Encodings;
    static const QList<VHEncoding> rows = {
        encodingWithName(u"Automatic"_s, None),
        encodingWithName(u"UTF-7"_s, UTF7),
        encodingWithName(u"UTF-8"_s, UTF8),
        encodingWithName(u"UTF-16"_s, UTF16),
        encodingWithName(u"UTF-16 Big Endian"_s, UTF16BE),
        encodingWithName(u"UTF-16 Little Endian"_s, UTF16LE),
        encodingWithName(u"UTF-32"_s, UTF32),
        encodingWithName(u"UTF-32 Big Endian"_s, UTF32BE),
        encodingWithName(u"UTF-32 Little Endian"_s, UTF32LE),
        encodingWithName(u"ISO Latin 1"_s, ISOLatin1),
        encodingWithName(u"ISO Latin 2"_s, ISOLatin2),
        encodingWithName(u"ISO Latin 3"_s, ISOLatin3),
        encodingWithName(u"ISO Latin 4"_s, ISOLatin4),
        encodingWithName(u"ISO Latin 5"_s, ISOLatin5),
        encodingWithName(u"Window Latin 1"_s, WindowsCP1252),
        encodingWithName(u"Window Latin 2"_s, WindowsCP1250),
        encodingWithName(u"Window Latin 5"_s, WindowsCP1254),
        encodingWithName(u"Mac Roman"_s, MacRoman),
        encodingWithName(u"Windows CP1250"_s, WindowsCP1250),
        encodingWithName(u"Windows CP1252"_s, WindowsCP1252),
        encodingWithName(u"Windows CP1254"_s, WindowsCP1254),
        encodingWithName(u"Next Step"_s, NeXTSTEP),
        encodingWithName(u"Non Lossy ASCII"_s, NonLossyASCII),
        separator(),
        encodingWithName(u"Chinese GB 18030"_s, GB18030),
        encodingWithName(u"Chinese Simp. (DOS)"_s, DOSChineseSimplif),
        encodingWithName(u"Chinese Simp. (Mac)"_s, MacChineseSimp),
        encodingWithName(u"Chinese Trad. (DOS)"_s, DOSChineseTrad),
        encodingWithName(u"Chinese Trad (Mac)"_s, MacChineseTrad),
        encodingWithName(u"Cyrillic (DOS)"_s, DOSRussian),
        encodingWithName(u"Cyrillic (ISO)"_s, ISOLatinCyrillic),
        encodingWithName(u"Cyrillic (Mac)"_s, MacCyrillic),
        encodingWithName(u"Cyrillic (Windows)"_s, WindowsCP1251),
        encodingWithName(u"Greek (DOS)"_s, DOSGreek),
        encodingWithName(u"Greek (ISO)"_s, ISOLatinGreek),
        encodingWithName(u"Greek (Mac)"_s, MacGreek),
        encodingWithName(u"Greek (Windows)"_s, WindowsCP1253),
        encodingWithName(u"Hebrew (DOS)"_s, DOSHebrew),
        encodingWithName(u"Hebrew (ISO)"_s, ISOLatinHebrew),
        encodingWithName(u"Hebrew (Mac)"_s, MacHebrew),
        encodingWithName(u"Hebrew (Windows)"_s, WindowsHebrew),
        encodingWithName(u"Japanese EUC"_s, JapaneseEUC),
        encodingWithName(u"Japanese ISO 2022"_s, ISO2022JP),
        encodingWithName(u"Japanese (DOS)"_s, ShiftJIS),
        encodingWithName(u"Japanese (Mac)"_s, MacJapanese),
        encodingWithName(u"Japanese (Next Step)"_s, NeXTSTEPJapanese),
        encodingWithName(u"Korean (Mac)"_s, MacKorean),
        encodingWithName(u"Korean (Windows)"_s, WindowsKoreanJohab),
    };
    return rows;
}

QString VHEncoding::nameForEncoding(EncodingId codePage)
{
    codePage = Encodings::canonical(codePage);
    for (const VHEncoding &row : catalogue()) {
        if (!row.isSeparator() && row.codePage() == codePage)
            return row.name();
    }
    return u"unknown encoding"_s;
}

std::optional<EncodingId> VHEncoding::encodingForName(QStringView name)
{
    for (const VHEncoding &row : catalogue()) {
        if (!row.isSeparator() && row.name() == name)
            return row.codePage();
    }
    return std::nullopt;
}
