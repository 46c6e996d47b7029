#include "FileNames.h"

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {
// Length of the well-formed UTF-8 sequence at `p` (at most `left` bytes), or 0 when the
// bytes there are not one. Overlong forms, surrogates and values above U+10FFFF are not.
int validSequenceLength(const unsigned char *p, qsizetype left)
{
    const unsigned char b0 = p[0];
    if (b0 < 0x80)
        return 1;
    auto continuation = [&](int i, unsigned char low = 0x80, unsigned char high = 0xBF) {
        return i < left && p[i] >= low && p[i] <= high;
    };
    if (b0 >= 0xC2 && b0 <= 0xDF)
        return continuation(1) ? 2 : 0;
    if (b0 >= 0xE0 && b0 <= 0xEF) {
        const unsigned char low = b0 == 0xE0 ? 0xA0 : 0x80;
        const unsigned char high = b0 == 0xED ? 0x9F : 0xBF;
        return continuation(1, low, high) && continuation(2) ? 3 : 0;
    }
    if (b0 >= 0xF0 && b0 <= 0xF4) {
        const unsigned char low = b0 == 0xF0 ? 0x90 : 0x80;
        const unsigned char high = b0 == 0xF4 ? 0x8F : 0xBF;
        return continuation(1, low, high) && continuation(2) && continuation(3) ? 4 : 0;
    }
    return 0;
}
} // namespace

QString decodeFileName(const QByteArray &bytes)
{
    QString name;
    name.reserve(bytes.size());
    const auto *data = reinterpret_cast<const unsigned char *>(bytes.constData());
    const qsizetype size = bytes.size();
    for (qsizetype i = 0; i < size;) {
        const int length = validSequenceLength(data + i, size - i);
        if (length == 0) {
            name.append(QChar(char16_t(0xDC00 + data[i])));
            ++i;
            continue;
        }
        name.append(QString::fromUtf8(bytes.constData() + i, length));
        i += length;
    }
    return name;
}

QByteArray encodeFileName(const QString &name)
{
    QByteArray bytes;
    bytes.reserve(name.size());
    const qsizetype size = name.size();
    qsizetype runStart = 0; // start of the characters not yet encoded
    for (qsizetype i = 0; i < size; ++i) {
        const char16_t unit = name.at(i).unicode();
        if (QChar::isHighSurrogate(unit) && i + 1 < size && QChar::isLowSurrogate(name.at(i + 1).unicode())) {
            ++i; // a pair: an ordinary character outside the BMP
            continue;
        }
        if (unit >= 0xDC80 && unit <= 0xDCFF) {
            bytes.append(QStringView(name).mid(runStart, i - runStart).toUtf8());
            bytes.append(char(unit - 0xDC00));
            runStart = i + 1;
        }
    }
    bytes.append(QStringView(name).mid(runStart).toUtf8());
    return bytes;
}

QString errnoText(int error)
{
    // In English whatever the locale, like every other message of the program.
    if (const char *text = strerrordesc_np(error))
        return QString::fromUtf8(text);
    return QStringLiteral("Unknown error %1").arg(error);
}

bool pathExists(const QString &path)
{
    struct stat info
    {
    };
    return !path.isEmpty() && ::lstat(encodeFileName(path).constData(), &info) == 0;
}

bool removeFile(const QString &path)
{
    return ::unlink(encodeFileName(path).constData()) == 0;
}

bool renameFile(const QString &from, const QString &to)
{
    const QByteArray source = encodeFileName(from), target = encodeFileName(to);
    if (::renameat2(AT_FDCWD, source.constData(), AT_FDCWD, target.constData(), RENAME_NOREPLACE) == 0)
        return true;
    if (errno != EINVAL && errno != ENOSYS)
        return false;
    // A filesystem without RENAME_NOREPLACE: check, then move.
    return !pathExists(to) && ::rename(source.constData(), target.constData()) == 0;
}
