#pragma once

#include <QString>
#include <QStringList>

// The rules of the web search window's downloads, apart from the browser: which responses
// become downloads, what a finished file is, and the private temporary folders they live in.
namespace WebDownloads {

// MIME fragments that always turn a response into a download.
inline const QStringList DefaultDownloadMimes{QStringLiteral("zip"), QStringLiteral("rar")};

// True when the MIME type contains one of the fragments (in any case).
bool mimeTriggersDownload(const QString &mimeType, const QStringList &fragments);

// The browser offers a download for a response it does not show itself. It is taken when
// its MIME type contains a fragment, when the type says no more than "bytes"
// (application/octet-stream and its kin, or none), or when the suggested name's extension
// is one of the fragments ("srt", "zip", ...); anything else (a program, a PDF) is refused.
bool acceptsDownload(const QString &mimeType, const QString &suggestedName, const QStringList &fragments);

struct Handling
{
    bool needsUnzipping = false;
    bool needsOpening = false;
};
// From the suggested name: "zip" in any case unzips, "rar" is saved by the user.
Handling handlingForName(const QString &suggestedName);
// For a file whose name said neither: "PK" at the start is a zip archive, the seven bytes
// "Rar!" 0x1A 0x07 0x00 a RAR archive.
Handling sniffFile(const QString &path);

// A name safe to create inside a folder: the last part of the suggestion, "download" when
// nothing usable is left.
QString safeFileName(const QString &suggestedName);

// A new folder only this user can enter, under the temporary folder, named after this
// process so that a later start can tell it was left behind. Empty when it cannot be made.
QString makePrivateFolder();
// Removes the folders makePrivateFolder() made in processes that are gone (a crash, a kill):
// only folders of this naming, owned by this user, whose process no longer runs.
// Answers how many were removed.
int removeStalePrivateFolders();

// Moves a file, across file systems too (then written atomically and the original removed).
bool moveFile(const QString &from, const QString &to, QString *error);

} // namespace WebDownloads
