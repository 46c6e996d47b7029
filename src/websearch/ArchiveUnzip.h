#pragma once

#include <QString>
#include <QStringList>

#include <cstdint>

// Unpacking a downloaded zip archive, through minizip.
//
// The archive comes from a web site and is treated as hostile. Every entry is written below
// `folder` and nowhere else:
// - an entry whose name is absolute (a leading slash or backslash, or a drive letter), has
//   a ".." component, or that is a symbolic link is skipped and logged;
// - an encrypted entry is skipped and logged (Captora asks for no passwords);
// - an archive that lists more than MaxEntries entries, or whose entries would unpack to
//   more than MaxTotalBytes in total, stops before anything is written (a zip bomb);
// - files and folders are made below an open descriptor of `folder` with O_NOFOLLOW and
//   O_EXCL, so that no link, old or planted meanwhile, is followed; an entry whose name is
//   taken already is skipped.
// A stopped archive leaves `folder` as empty as it found it; an entry that fails to unpack
// (damaged data, a wrong checksum) leaves no part of itself behind.
namespace ArchiveUnzip {

inline constexpr int MaxEntries = 1000;
inline constexpr std::int64_t MaxTotalBytes = 50LL * 1024 * 1024;

// Unzips the archive at `archivePath` into the existing folder `folder`. True when every
// entry was unpacked. Each problem is logged ("Warning: ..."); `problems`, when given,
// receives them in the interface language for the user.
bool unzip(const QString &archivePath, const QString &folder, QStringList *problems = nullptr);

} // namespace ArchiveUnzip
