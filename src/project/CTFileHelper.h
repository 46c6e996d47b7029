#pragma once

#include "CTLanguage.h"

#include <QStringList>

// How the files of a project are named and found beside its movie. The base path is the
// movie's path without extension; every subtitle file is named from it.
class CTFileHelper
{
public:
    CTFileHelper() = delete;

    // Extensions the open panel and drops accept, in this order: srt, sub, ass, ssa, txt.
    static const QStringList &subtitleExtensions();

    // The locale identifier for an ISO 639-2 code ("deu", "ger" → "de"), or a null string.
    static QString localeForLanguageCode(const QString &code);

    // base + "." + extension; while that file exists and is not `compare`, base + "-n." +
    // extension for n = 1, 2, ... An empty base gives "".
    static QString pathWithBase(const QString &base, const QString &extension, const QString &compare);

    // The SubRip files of the base's folder whose names contain the base's last path
    // component, as file entries, in listing order.
    static LanguageList languagesAtBasePath(const QString &base);

    // The chapter-marks file of a base: base + ".vtt".
    static QString chapterMarksPath(const QString &base);

    // Path helpers with the usual path-extension semantics (the extension is what follows
    // the last "." of the last path component).
    static QString pathExtension(const QString &path);
    static QString stringByDeletingPathExtension(const QString &path);
    static QString lastPathComponent(const QString &path);
    // Removes the extension and, when what remains ends in ".<locale>", that too:
    // /m/Film.en.srt → /m/Film, /m/Film.part2.srt → /m/Film.part2.
    static QString stringByDeletingLocaleAndPathExtension(const QString &path);
};
