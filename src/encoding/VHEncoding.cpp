#include "VHEncoding.h"

#include <QCoreApplication>

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
    // Names in the interface language: the table is made at first use, after the program has
    // loaded its translations (the command line loads none and lists them in English).
    static const QList<VHEncoding> rows = {
        encodingWithName(QCoreApplication::translate("VHEncoding", "Automatic"), None),
        encodingWithName(u"UTF-7"_s, UTF7),
        encodingWithName(u"UTF-8"_s, UTF8),
        encodingWithName(u"UTF-16"_s, UTF16),
        encodingWithName(QCoreApplication::translate("VHEncoding", "UTF-16 Big Endian"), UTF16BE),
        encodingWithName(QCoreApplication::translate("VHEncoding", "UTF-16 Little Endian"), UTF16LE),
        encodingWithName(u"UTF-32"_s, UTF32),
        encodingWithName(QCoreApplication::translate("VHEncoding", "UTF-32 Big Endian"), UTF32BE),
        encodingWithName(QCoreApplication::translate("VHEncoding", "UTF-32 Little Endian"), UTF32LE),
        encodingWithName(u"ISO Latin 1"_s, ISOLatin1),
        encodingWithName(u"ISO Latin 2"_s, ISOLatin2),
        encodingWithName(u"ISO Latin 3"_s, ISOLatin3),
        encodingWithName(u"ISO Latin 4"_s, ISOLatin4),
        encodingWithName(u"ISO Latin 5"_s, ISOLatin5),
        encodingWithName(QCoreApplication::translate("VHEncoding", "Window Latin 1"), WindowsCP1252),
        encodingWithName(QCoreApplication::translate("VHEncoding", "Window Latin 2"), WindowsCP1250),
        encodingWithName(QCoreApplication::translate("VHEncoding", "Window Latin 5"), WindowsCP1254),
        encodingWithName(u"Mac Roman"_s, MacRoman),
        encodingWithName(u"Windows CP1250"_s, WindowsCP1250),
        encodingWithName(u"Windows CP1252"_s, WindowsCP1252),
        encodingWithName(u"Windows CP1254"_s, WindowsCP1254),
        encodingWithName(u"Next Step"_s, NeXTSTEP),
        encodingWithName(QCoreApplication::translate("VHEncoding", "Non Lossy ASCII"), NonLossyASCII),
        separator(),
        encodingWithName(QCoreApplication::translate("VHEncoding", "Chinese GB 18030"), GB18030),
        encodingWithName(QCoreApplication::translate("VHEncoding", "Chinese Simp. (DOS)"), DOSChineseSimplif),
        encodingWithName(QCoreApplication::translate("VHEncoding", "Chinese Simp. (Mac)"), MacChineseSimp),
        encodingWithName(QCoreApplication::translate("VHEncoding", "Chinese Trad. (DOS)"), DOSChineseTrad),
        encodingWithName(QCoreApplication::translate("VHEncoding", "Chinese Trad (Mac)"), MacChineseTrad),
        encodingWithName(QCoreApplication::translate("VHEncoding", "Cyrillic (DOS)"), DOSRussian),
        encodingWithName(QCoreApplication::translate("VHEncoding", "Cyrillic (ISO)"), ISOLatinCyrillic),
        encodingWithName(QCoreApplication::translate("VHEncoding", "Cyrillic (Mac)"), MacCyrillic),
        encodingWithName(QCoreApplication::translate("VHEncoding", "Cyrillic (Windows)"), WindowsCP1251),
        encodingWithName(QCoreApplication::translate("VHEncoding", "Greek (DOS)"), DOSGreek),
        encodingWithName(QCoreApplication::translate("VHEncoding", "Greek (ISO)"), ISOLatinGreek),
        encodingWithName(QCoreApplication::translate("VHEncoding", "Greek (Mac)"), MacGreek),
        encodingWithName(QCoreApplication::translate("VHEncoding", "Greek (Windows)"), WindowsCP1253),
        encodingWithName(QCoreApplication::translate("VHEncoding", "Hebrew (DOS)"), DOSHebrew),
        encodingWithName(QCoreApplication::translate("VHEncoding", "Hebrew (ISO)"), ISOLatinHebrew),
        encodingWithName(QCoreApplication::translate("VHEncoding", "Hebrew (Mac)"), MacHebrew),
        encodingWithName(QCoreApplication::translate("VHEncoding", "Hebrew (Windows)"), WindowsHebrew),
        encodingWithName(QCoreApplication::translate("VHEncoding", "Japanese EUC"), JapaneseEUC),
        encodingWithName(QCoreApplication::translate("VHEncoding", "Japanese ISO 2022"), ISO2022JP),
        encodingWithName(QCoreApplication::translate("VHEncoding", "Japanese (DOS)"), ShiftJIS),
        encodingWithName(QCoreApplication::translate("VHEncoding", "Japanese (Mac)"), MacJapanese),
        encodingWithName(QCoreApplication::translate("VHEncoding", "Japanese (Next Step)"), NeXTSTEPJapanese),
        encodingWithName(QCoreApplication::translate("VHEncoding", "Korean (Mac)"), MacKorean),
        encodingWithName(QCoreApplication::translate("VHEncoding", "Korean (Windows)"), WindowsKoreanJohab),
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
