#include "MovieBoxes.h"

#include "DescriptorIo.h"

#include <QFile>
#include <QtEndian>

#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace MovieBoxes {

namespace {
constexpr int MaxDepth = 32;
// An index larger than this is not one of ours to edit (a real one is a few megabytes).
constexpr qint64 MaxIndexSize = 512LL * 1024 * 1024;

bool isContainer(const QByteArray &type)
{
    static const char *const containers[] = {"moov", "trak", "mdia", "minf", "stbl", "udta",
                                             "edts", "dinf", "meta", "ilst", "tref"};
    for (const char *name : containers)
        if (type == name)
            return true;
    return false;
}

void appendBig32(QByteArray &out, quint32 value)
{
    char bytes[4];
    qToBigEndian(value, bytes);
    out.append(bytes, 4);
}

struct TopBox
{
    QByteArray type;
    qint64 offset = 0;
    qint64 size = 0;
};

// The top-level boxes of an open file.
std::optional<QList<TopBox>> topLevel(int fd, qint64 fileSize)
{
    QList<TopBox> boxes;
    qint64 offset = 0;
    while (offset + 8 <= fileSize) {
        unsigned char header[16];
        if (::pread(fd, header, 16, offset) < 8)
            return std::nullopt;
        qint64 size = qFromBigEndian<quint32>(header);
        if (size == 1) {
            if (offset + 16 > fileSize)
                return std::nullopt;
            size = qint64(qFromBigEndian<quint64>(header + 8));
        } else if (size == 0) {
            size = fileSize - offset;
        }
        if (size < 8 || size > fileSize - offset)
            return std::nullopt;
        boxes.append({QByteArray(reinterpret_cast<const char *>(header + 4), 4), offset, size});
        offset += size;
    }
    return boxes;
}

// Moves [from, end) of the file back by `by` bytes, last block first.
bool moveBack(int fd, qint64 from, qint64 end, qint64 by)
{
    constexpr qint64 block = 4 * 1024 * 1024;
    QByteArray buffer(int(block), Qt::Uninitialized);
    qint64 position = end;
    while (position > from) {
        const qint64 start = std::max(from, position - block);
        const qint64 length = position - start;
        if (readAll(fd, buffer.data(), length, start) != 0 ||
            writeAll(fd, buffer.constData(), length, start + by) != 0)
            return false;
        position = start;
    }
    return true;
}

QString systemError()
{
    return QString::fromLocal8Bit(std::strerror(errno));
}
} // namespace

Box *Box::child(const char *name)
{
    for (Box &box : children)
        if (box.type == name)
            return &box;
    return nullptr;
}

const Box *Box::child(const char *name) const
{
    for (const Box &box : children)
        if (box.type == name)
            return &box;
    return nullptr;
}

QByteArray Box::serialize(qint64 chunkOffsetDelta, bool *overflow) const
{
    QByteArray body;
    if (container) {
        body = payload;
        for (const Box &box : children)
            body.append(box.serialize(chunkOffsetDelta, overflow));
    } else if (chunkOffsetDelta != 0 && (type == "stco" || type == "co64") && payload.size() >= 8) {
        body = payload;
        const bool wide = type == "co64";
        const qint64 width = wide ? 8 : 4;
        const qint64 count =
            std::min<qint64>(qFromBigEndian<quint32>(body.constData() + 4), (body.size() - 8) / width);
        for (qint64 i = 0; i < count; ++i) {
            char *entry = body.data() + 8 + i * width;
            if (wide) {
                qToBigEndian(qFromBigEndian<quint64>(entry) + quint64(chunkOffsetDelta), entry);
            } else {
                const qint64 moved = qint64(qFromBigEndian<quint32>(entry)) + chunkOffsetDelta;
                if (moved > 0xFFFFFFFFLL)
                    *overflow = true;
                qToBigEndian(quint32(moved), entry);
            }
        }
    } else {
        body = payload;
    }
    QByteArray out;
    out.reserve(body.size() + 8);
    appendBig32(out, quint32(body.size() + 8));
    out.append(type.left(4));
    out.append(body);
    return out;
}

std::optional<QList<Box>> parseBoxes(const QByteArray &data, int depth)
{
    if (depth > MaxDepth)
        return std::nullopt;
    QList<Box> boxes;
    qint64 offset = 0;
    while (offset + 8 <= data.size()) {
        qint64 size = qFromBigEndian<quint32>(data.constData() + offset);
        qint64 header = 8;
        if (size == 1) {
            if (offset + 16 > data.size())
                return std::nullopt;
            size = qint64(qFromBigEndian<quint64>(data.constData() + offset + 8));
            header = 16;
        } else if (size == 0) {
            size = data.size() - offset;
        }
        if (size < header || size > data.size() - offset)
            return std::nullopt;
        Box box;
        box.type = data.mid(offset + 4, 4);
        const QByteArray body = data.mid(offset + header, size - header);
        box.container = isContainer(box.type);
        if (box.container) {
            // A full box: version and flags come before the children.
            const qint64 skip = box.type == "meta" ? 4 : 0;
            if (body.size() < skip)
                return std::nullopt;
            box.payload = body.left(skip);
            std::optional<QList<Box>> children = parseBoxes(body.mid(skip), depth + 1);
            if (!children)
                return std::nullopt;
            box.children = std::move(*children);
        } else {
            box.payload = body;
        }
        boxes.append(std::move(box));
        offset += size;
    }
    if (offset != data.size())
        return std::nullopt;
    return boxes;
}

Box leaf(const char *type, const QByteArray &payload)
{
    Box box;
    box.type = QByteArray(type, 4);
    box.payload = payload;
    return box;
}

QList<Box *> tracks(Box &moov)
{
    QList<Box *> out;
    for (Box &box : moov.children)
        if (box.type == "trak")
            out.append(&box);
    return out;
}

int trackID(const Box &trak)
{
    const Box *tkhd = trak.child("tkhd");
    if (!tkhd || tkhd->payload.size() < 24)
        return 0;
    // Version 1 has 64-bit creation and modification times.
    const qint64 at = tkhd->payload[0] == 1 ? 20 : 12;
    return int(qFromBigEndian<quint32>(tkhd->payload.constData() + at));
}

QByteArray handlerType(const Box &trak)
{
    const Box *mdia = trak.child("mdia");
    const Box *hdlr = mdia ? mdia->child("hdlr") : nullptr;
    return hdlr && hdlr->payload.size() >= 12 ? hdlr->payload.mid(8, 4) : QByteArray();
}

QByteArray elngPayload(const QString &tag)
{
    QByteArray out(4, '\0');
    out.append(tag.toLatin1());
    out.append('\0');
    return out;
}

QByteArray tagcPayload(const QString &characteristic)
{
    return characteristic.toUtf8();
}

QString editIndex(const QString &path, const std::function<void(Box &moov)> &edit)
{
    const QByteArray name = QFile::encodeName(path);
    const int fd = ::open(name.constData(), O_RDWR | O_CLOEXEC);
    if (fd < 0)
        return systemError();
    struct Closer
    {
        int fd;
        ~Closer() { ::close(fd); }
    } closer{fd};
    const qint64 fileSize = ::lseek(fd, 0, SEEK_END);
    const std::optional<QList<TopBox>> boxes = topLevel(fd, fileSize);
    if (!boxes)
        return u"the file's boxes do not fit together"_s;
    qsizetype moovAt = -1;
    for (qsizetype i = 0; i < boxes->size(); ++i)
        if ((*boxes)[i].type == "moov")
            moovAt = i;
    if (moovAt < 0)
        return u"the file has no index"_s;
    const TopBox moovBox = (*boxes)[moovAt];
    qsizetype mdatAt = -1;
    for (qsizetype i = 0; i < boxes->size(); ++i)
        if ((*boxes)[i].type == "mdat" && mdatAt < 0)
            mdatAt = i;
    // Only an index in front of the media data is edited here (the muxer puts it there).
    if (mdatAt >= 0 && mdatAt < moovAt)
        return u"the index lies after the media data"_s;
    if (moovBox.size > MaxIndexSize)
        return u"the index is too large"_s;
    const qint64 header = 8;
    QByteArray data(int(moovBox.size - header), Qt::Uninitialized);
    if (readAll(fd, data.data(), data.size(), moovBox.offset + header) != 0)
        return systemError();
    std::optional<QList<Box>> children = parseBoxes(data);
    if (!children)
        return u"the index's boxes do not fit together"_s;
    Box moov;
    moov.type = "moov";
    moov.container = true;
    moov.children = std::move(*children);
    edit(moov);

    bool overflow = false;
    const qint64 newSize = moov.serialize(0, &overflow).size();
    const qint64 growth = newSize - moovBox.size;
    const qint64 afterMoov = moovBox.offset + moovBox.size;
    const bool freeFollows = moovAt + 1 < boxes->size() && (*boxes)[moovAt + 1].type == "free";
    const qint64 room = freeFollows ? (*boxes)[moovAt + 1].size : 0;
    // The filler left between the new index and what follows it, when it fits in place.
    qint64 filler = -1;
    if (growth == 0)
        filler = 0;
    else if (freeFollows && (growth == room || growth + 8 <= room))
        filler = room - growth;
    else if (growth < 0 && room - growth >= 8)
        filler = room - growth;
    if (filler >= 0) {
        QByteArray bytes = moov.serialize(0, &overflow);
        if (filler > 0) {
            appendBig32(bytes, quint32(filler));
            bytes.append("free");
            bytes.append(QByteArray(int(filler - 8), '\0'));
        }
        if (writeAll(fd, bytes.constData(), bytes.size(), moovBox.offset) != 0)
            return systemError();
        return ::fsync(fd) == 0 ? QString() : systemError();
    }
    if (growth < 0)
        return u"the index cannot shrink by less than a box"_s;
    // No room: everything after the index moves back, and the chunk offsets with it.
    const QByteArray bytes = moov.serialize(growth, &overflow);
    if (overflow)
        return u"the chunk offsets do not fit in 32 bits"_s;
    if (!moveBack(fd, afterMoov, fileSize, growth) ||
        writeAll(fd, bytes.constData(), bytes.size(), moovBox.offset) != 0)
        return systemError();
    return ::fsync(fd) == 0 ? QString() : systemError();
}

QMap<int, QString> extendedLanguageTags(const QString &path)
{
    QMap<int, QString> tags;
    const QByteArray name = QFile::encodeName(path);
    const int fd = ::open(name.constData(), O_RDONLY | O_CLOEXEC);
    if (fd < 0)
        return tags;
    struct Closer
    {
        int fd;
        ~Closer() { ::close(fd); }
    } closer{fd};
    const qint64 fileSize = ::lseek(fd, 0, SEEK_END);
    const std::optional<QList<TopBox>> boxes = topLevel(fd, fileSize);
    if (!boxes)
        return tags;
    for (const TopBox &top : *boxes) {
        if (top.type != "moov" || top.size > MaxIndexSize)
            continue;
        QByteArray data(int(top.size - 8), Qt::Uninitialized);
        if (readAll(fd, data.data(), data.size(), top.offset + 8) != 0)
            return tags;
        std::optional<QList<Box>> children = parseBoxes(data);
        if (!children)
            return tags;
        for (const Box &trak : std::as_const(*children)) {
            if (trak.type != "trak")
                continue;
            const Box *mdia = trak.child("mdia");
            const Box *elng = mdia ? mdia->child("elng") : nullptr;
            if (!elng || elng->payload.size() <= 4)
                continue;
            const QByteArray tag = elng->payload.mid(4);
            const qsizetype end = tag.indexOf('\0');
            const QString text = QString::fromLatin1(end < 0 ? tag : tag.left(end));
            if (!text.isEmpty())
                tags.insert(trackID(trak), text);
        }
    }
    return tags;
}

} // namespace MovieBoxes
