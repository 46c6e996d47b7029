#include "TextCodec.h"

#include <QStringDecoder>
#include <QStringEncoder>

using namespace Qt::StringLiterals;

namespace {
bool failWith(QString *error, const QString &reason)
{
    if (error)
        *error = reason;
    return false;
}

bool decodeStrictUtf8(const QByteArray &bytes, QString *text)
{
    QStringDecoder decoder(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless);
    QString decoded = decoder.decode(bytes);
    if (decoder.hasError())
        return false;
    *text = std::move(decoded);
    return true;
}
} // namespace

bool TextCodec::isSupported(EncodingId encoding)
{
    return encoding == Encodings::UTF8;
}

bool TextCodec::decode(const QByteArray &bytes, EncodingId encoding, QString *text, QString *error)
{
    if (encoding == Encodings::UTF8) {
        if (decodeStrictUtf8(bytes, text))
            return true;
        return failWith(error, u"The file is not valid UTF-8 text."_s);
    }
    return failWith(error, u"The text encoding %1 is not supported."_s.arg(encoding));
}

bool TextCodec::encode(const QString &text, EncodingId encoding, QByteArray *bytes, QString *error)
{
    if (encoding == Encodings::UTF8) {
        *bytes = text.toUtf8();
        return true;
    }
    return failWith(error, u"The text encoding %1 is not supported."_s.arg(encoding));
}

bool TextCodec::decodeAutomatically(const QByteArray &bytes, QString *text, EncodingId *used)
{
    if (bytes.startsWith("\xEF\xBB\xBF")) {
        if (!decodeStrictUtf8(bytes.mid(3), text))
            return false;
        *used = Encodings::UTF8;
        return true;
    }
    if (decodeStrictUtf8(bytes, text)) {
        *used = Encodings::UTF8;
        return true;
    }
    return false;
}
