#pragma once

// Reading and editing the index ("moov") of an MP4/QuickTime file as a tree of boxes, for
// what the muxer has no place for: the tagged characteristics ('tagc') and the extended
// language tag ('elng') of a track, and the content rating items of the movie's metadata.
#include <QByteArray>
#include <QList>
#include <QMap>
#include <QString>

#include <functional>
#include <optional>

namespace MovieBoxes {

// One box: its four-character type and either its payload or its children. Containers
// listed in Box::isContainer() are parsed into children; 'meta' keeps its 4 bytes of
// version and flags in `payload` ahead of its children.
struct Box
{
    QByteArray type;
    QByteArray payload;
    QList<Box> children;
    bool container = false;

    // The first child of this type, or null.
    Box *child(const char *type);
    const Box *child(const char *type) const;
    QByteArray serialize(qint64 chunkOffsetDelta, bool *overflow) const;
};

// Parses the boxes of `data` (a moov's payload); none when the sizes do not fit.
std::optional<QList<Box>> parseBoxes(const QByteArray &data, int depth = 0);

// A leaf box with this payload.
Box leaf(const char *type, const QByteArray &payload);

// The tracks of a moov: track ID → its 'trak' box.
QList<Box *> tracks(Box &moov);
int trackID(const Box &trak);
QByteArray handlerType(const Box &trak);

// Reads the moov of the file at `path`, lets `edit` change it, and writes it back. When the
// moov grows, the 'free' box after it (the room the muxer reserved) shrinks; without room
// enough everything after the moov moves back by the growth and every chunk offset follows.
// Returns an empty string on success, else why it failed (the file is then unusable).
QString editIndex(const QString &path, const std::function<void(Box &moov)> &edit);

// The 'elng' tag of every track that has one: track ID → "pt-BR". Empty for files that are
// not MP4/QuickTime or carry none.
QMap<int, QString> extendedLanguageTags(const QString &path);

// The payload of an 'elng' box (version and flags 0, the tag, a terminating zero) and of a
// 'tagc' box (the characteristic's name).
QByteArray elngPayload(const QString &tag);
QByteArray tagcPayload(const QString &characteristic);

} // namespace MovieBoxes
