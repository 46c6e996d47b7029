#include "TimedTextSamples.h"

#include <QStringDecoder>
#include <QtEndian>

#include <cmath>

using namespace Qt::StringLiterals;

namespace TimedText {

namespace {
void appendBE16(QByteArray &out, quint16 value)
{
    const char bytes[2] = {char(value >> 8), char(value & 0xff)};
    out.append(bytes, 2);
}

void appendBE32(QByteArray &out, quint32 value)
{
    const char bytes[4] = {char(value >> 24), char((value >> 16) & 0xff), char((value >> 8) & 0xff),
                           char(value & 0xff)};
    out.append(bytes, 4);
}

void appendRGBA(QByteArray &out, quint8 r, quint8 g, quint8 b, quint8 a)
{
    const char bytes[4] = {char(r), char(g), char(b), char(a)};
    out.append(bytes, 4);
}
} // namespace

QByteArray tx3gSamplePayload(const QString &text, bool forced)
{
    const QByteArray utf8 = text.toUtf8();
    const quint16 length = quint16(utf8.size() & 0xffff);
    QByteArray out;
    out.reserve(length + (forced ? 10 : 2));
    appendBE16(out, length);
    out.append(utf8.constData(), length);
    if (forced) {
        appendBE32(out, 8);
        out.append("frcd", 4);
    }
    return out;
}

QByteArray qtTextSamplePayload(const QString &text)
{
    // The byte-order mark followed by the code units in this machine's byte order.
    QByteArray utf16;
    utf16.reserve((text.size() + 1) * 2);
    const char16_t mark = 0xFEFF;
    utf16.append(reinterpret_cast<const char *>(&mark), 2);
    utf16.append(reinterpret_cast<const char *>(text.utf16()), text.size() * 2);
    const quint16 length = quint16(utf16.size() & 0xffff);
    QByteArray out;
    out.reserve(length + 14);
    appendBE16(out, length);
    out.append(utf16.constData(), length);
    appendBE32(out, 12);
    out.append("encd", 4);
    appendBE32(out, 256);
    return out;
}

QByteArray tx3gSampleDescription(quint32 displayFlags)
{
    QByteArray out;
    appendBE32(out, displayFlags);
    out.append(char(0)); // horizontal justification
    out.append(char(0)); // vertical justification
    appendRGBA(out, 0, 0, 0, 255);
    for (int i = 0; i < 4; ++i) // default text box: top, left, bottom, right
        appendBE16(out, 0);
    appendBE16(out, 0);    // style: start character
    appendBE16(out, 0);    // end character
    appendBE16(out, 1);    // font identifier
    out.append(char(0));   // face
    out.append(char(255)); // size
    appendRGBA(out, 255, 255, 255, 255);
    static const QByteArray fontName = QByteArrayLiteral("Sans-Serif");
    appendBE32(out, quint32(4 + 4 + 2 + 2 + 1 + fontName.size()));
    out.append("ftab", 4);
    appendBE16(out, 1); // entry count
    appendBE16(out, 1); // font identifier
    out.append(char(fontName.size()));
    out.append(fontName);
    return out;
}

QByteArray qtTextSampleDescription(qint16 width, qint16 height)
{
    QByteArray out;
    appendBE32(out, 1);         // display flags: do not display
    appendBE32(out, 1);         // text justification
    for (int i = 0; i < 3; ++i) // background colour, 16-bit RGB
        appendBE16(out, 0);
    appendBE16(out, 0); // default text box: top, left, bottom, right
    appendBE16(out, 0);
    appendBE16(out, quint16(height));
    appendBE16(out, quint16(width));
    out.append(8, char(0));     // reserved
    appendBE16(out, 1);         // font number
    appendBE16(out, 0);         // font face
    out.append(char(0));        // reserved
    appendBE16(out, 0);         // reserved
    for (int i = 0; i < 3; ++i) // foreground colour, 16-bit RGB
        appendBE16(out, 0xffff);
    out.append(char(0)); // text name: empty Pascal string
    return out;
}

std::optional<QString> stringFromSampleBytes(const QByteArray &data)
{
    if (data.size() < 2)
        return std::nullopt;
    const quint16 length = qFromBigEndian<quint16>(data.constData());
    if (length == 0 || data.size() < qsizetype(length) + 2)
        return std::nullopt;
    QByteArrayView text(data.constData() + 2, length);
    const qsizetype zero = text.indexOf('\0');
    if (zero >= 0)
        text = text.first(zero);
    QStringDecoder decoder(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless);
    QString result = decoder.decode(text);
    if (decoder.hasError())
        return std::nullopt;
    if (result.isNull())
        result = u""_s; // present but empty, unlike "no text"
    return result;
}

qint64 toTimeScale600(double seconds)
{
    return std::llround(seconds * 600.0);
}

} // namespace TimedText
