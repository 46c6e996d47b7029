// The engine list, the search address, and the rules that decide what a download is, apart
// from the browser.
#include "PropertyList.h"
#include "TestSupport.h"
#include "WebDownloads.h"
#include "WebSearchEngines.h"
#include "WebSearchTestSupport.h"

#include <QDir>
#include <QFileInfo>
#include <QProcess>

#include <gtest/gtest.h>

#include <sys/stat.h>

using namespace Qt::StringLiterals;

namespace {

TEST(EngineListTest, StructuredListKeepsItsOrderAndSections)
{
    const QVariantMap root{
        {u"Engines"_s, QVariantMap{{u"B"_s, u"https://b/?q=%s"_s}, {u"A"_s, u"https://a/%s"_s}}},
        {u"Order"_s, QVariantList{u"-Sites"_s, u"B"_s, u"A"_s, u"Gone"_s}}};
    const std::optional<EngineList> list = WebSearchEngines::fromPropertyList(root, nullptr);
    ASSERT_TRUE(list);
    EXPECT_EQ(list->order, (QStringList{u"-Sites"_s, u"B"_s, u"A"_s, u"Gone"_s}));
    EXPECT_EQ(list->engines.value(u"B"_s), u"https://b/?q=%s"_s);
}

TEST(EngineListTest, PlainDictionaryIsOrderedByTitle)
{
    const QVariantMap root{{u"b"_s, u"x"_s}, {u"B"_s, u"y"_s}, {u"a"_s, u"z"_s}};
    const std::optional<EngineList> list = WebSearchEngines::fromPropertyList(root, nullptr);
    ASSERT_TRUE(list);
    EXPECT_EQ(list->order, (QStringList{u"B"_s, u"a"_s, u"b"_s}));
    // "Engines" without "Order" is ordered the same way.
    const std::optional<EngineList> structured =
        WebSearchEngines::fromPropertyList(QVariantMap{{u"Engines"_s, root}}, nullptr);
    ASSERT_TRUE(structured);
    EXPECT_EQ(structured->order, list->order);
}

TEST(EngineListTest, BrokenListsAreRefusedWithTheReason)
{
    QString error;
    EXPECT_FALSE(WebSearchEngines::fromPropertyList(QVariantList{}, &error));
    EXPECT_EQ(error, u"the file holds no dictionary"_s);
    EXPECT_FALSE(WebSearchEngines::fromPropertyList(QVariantMap{{u"Engines"_s, u"x"_s}}, &error));
    EXPECT_EQ(error, u"\"Engines\" is not a dictionary"_s);
    EXPECT_FALSE(WebSearchEngines::fromPropertyList(QVariantMap{{u"A"_s, 3}}, &error));
    EXPECT_EQ(error, u"the address of \"A\" is not a string"_s);
    EXPECT_FALSE(WebSearchEngines::fromPropertyList(
        QVariantMap{{u"Engines"_s, QVariantMap{}}, {u"Order"_s, QVariantList{1}}}, &error));
    EXPECT_EQ(error, u"\"Order\" holds an entry that is not a string"_s);
    TempDir dir;
    EXPECT_FALSE(WebSearchEngines::readFile(dir.write(u"WebSearch.plist"_s, "<plist><dict><key>"), &error));
    EXPECT_FALSE(error.isEmpty());
}

TEST(EngineListTest, TheShippedListIsValidAndEveryTitleHasAnAddress)
{
    QString error;
    const std::optional<EngineList> list =
        WebSearchEngines::readFile(QStringLiteral(CAPTORA_RESOURCE_DIR "/WebSearch.plist"), &error);
    ASSERT_TRUE(list) << error.toStdString();
    EXPECT_GE(list->engines.size(), 5);
    for (const QString &entry : list->order) {
        if (entry.startsWith(u'-'))
            continue;
        EXPECT_TRUE(list->engines.contains(entry)) << entry.toStdString();
        EXPECT_EQ(list->engines.value(entry).count(u"%s"_s), 1) << entry.toStdString();
        EXPECT_TRUE(list->engines.value(entry).startsWith(u"https://"_s)) << entry.toStdString();
    }
}

TEST(EngineListTest, UserEnginesFollowUnderTheirOwnSection)
{
    EngineList shipped;
    shipped.engines = {{u"A"_s, u"https://a/%s"_s}, {u"B"_s, u"https://b/%s"_s}};
    shipped.order = {u"-Sites"_s, u"A"_s, u"B"_s};
    EngineList user;
    user.engines = {{u"Mine"_s, u"http://127.0.0.1/%s"_s}, {u"B"_s, u"https://my-b/%s"_s}};
    user.order = {u"Mine"_s, u"B"_s};
    const EngineList merged = WebSearchEngines::withUserEngines(shipped, user, u"Your Engines"_s);
    EXPECT_EQ(merged.order, (QStringList{u"-Sites"_s, u"A"_s, u"-Your Engines"_s, u"Mine"_s, u"B"_s}));
    EXPECT_EQ(merged.engines.value(u"B"_s), u"https://my-b/%s"_s);
    EXPECT_EQ(WebSearchEngines::withUserEngines(shipped, EngineList(), u"Your Engines"_s).order,
              shipped.order);
}

TEST(SearchAddressTest, TheTermGoesIntoTheFirstPlaceholderEncodedForAQuery)
{
    EXPECT_EQ(WebSearchEngines::searchAddress(u"https://x/?q=%s&p=%s"_s, u"Die Brücke 1959"_s),
              u"https://x/?q=Die%20Br%C3%BCcke%201959&p=%s"_s);
    // Characters a query allows stay; the others are encoded.
    EXPECT_EQ(WebSearchEngines::encodedSearchTerm(u"a&b=c+d/e?f#g%h\"i"_s), u"a&b=c+d/e?f%23g%25h%22i"_s);
    // Without a placeholder the template loads as it is, but only for a term.
    EXPECT_EQ(WebSearchEngines::searchAddress(u"https://x/"_s, u"Film"_s), u"https://x/"_s);
    EXPECT_EQ(WebSearchEngines::searchAddress(u"https://x/?q=%s"_s, QString()), QString());
    EXPECT_EQ(WebSearchEngines::searchAddress(QString(), u"Film"_s), QString());
}

TEST(SearchAddressTest, TheMovieNameBecomesTheTerm)
{
    EXPECT_EQ(WebSearchEngines::searchTermForPath(u"/m/Big.Buck_Bunny.2008"_s), u"Big Buck Bunny 2008"_s);
    EXPECT_EQ(WebSearchEngines::searchTermForPath(u"/m/Film"_s), u"Film"_s);
    EXPECT_EQ(WebSearchEngines::searchTermForPath(QString()), QString());
}

TEST(DownloadRulesTest, MimeFragmentsDecide)
{
    const QStringList fragments{u"zip"_s, u"rar"_s, u"srt"_s, u"application/txt"_s};
    EXPECT_TRUE(WebDownloads::mimeTriggersDownload(u"application/zip"_s, fragments));
    EXPECT_TRUE(WebDownloads::mimeTriggersDownload(u"application/x-rar-compressed"_s, fragments));
    EXPECT_TRUE(WebDownloads::mimeTriggersDownload(u"Application/TXT"_s, fragments));
    EXPECT_FALSE(WebDownloads::mimeTriggersDownload(u"text/html"_s, fragments));
    EXPECT_FALSE(WebDownloads::mimeTriggersDownload(u"text/plain"_s, fragments));

    // Offered files: by type, plain bytes, or by their name.
    EXPECT_TRUE(WebDownloads::acceptsDownload(u"application/octet-stream"_s, u"SUBS.ZIP"_s, fragments));
    EXPECT_TRUE(WebDownloads::acceptsDownload(QString(), u"x"_s, fragments));
    EXPECT_TRUE(WebDownloads::acceptsDownload(u"application/x-subrip"_s, u"Film.srt"_s, fragments));
    EXPECT_FALSE(WebDownloads::acceptsDownload(u"application/pdf"_s, u"flyer.pdf"_s, fragments));
    EXPECT_FALSE(WebDownloads::acceptsDownload(u"application/x-msdownload"_s, u"setup.exe"_s, fragments));
}

TEST(DownloadRulesTest, NamesAndFirstBytesSayWhatToDo)
{
    EXPECT_TRUE(WebDownloads::handlingForName(u"SUBS.ZIP"_s).needsUnzipping);
    EXPECT_TRUE(WebDownloads::handlingForName(u"a.Rar"_s).needsOpening);
    const WebDownloads::Handling plain = WebDownloads::handlingForName(u"Film.srt"_s);
    EXPECT_FALSE(plain.needsUnzipping || plain.needsOpening);

    EXPECT_TRUE(WebDownloads::sniffFile(testArchive(u"pk_without_extension"_s)).needsUnzipping);
    EXPECT_TRUE(WebDownloads::sniffFile(testArchive(u"sub.rar"_s)).needsOpening);
    const WebDownloads::Handling text = WebDownloads::sniffFile(testArchive(u"Film.srt"_s));
    EXPECT_FALSE(text.needsUnzipping || text.needsOpening);
    TempDir dir;
    // "Rar!" alone is not the signature.
    EXPECT_FALSE(WebDownloads::sniffFile(dir.write(u"short"_s, "Rar!\x1a\x07")).needsOpening);

    EXPECT_EQ(WebDownloads::safeFileName(u"../../x.zip"_s), u"x.zip"_s);
    EXPECT_EQ(WebDownloads::safeFileName(u"..\\x.zip"_s), u"x.zip"_s);
    EXPECT_EQ(WebDownloads::safeFileName(u".."_s), u"download"_s);
    EXPECT_EQ(WebDownloads::safeFileName(QString()), u"download"_s);
}

TEST(DownloadRulesTest, PrivateFoldersOfEndedRunsAreRemovedAtTheNextStart)
{
    const QString mine = WebDownloads::makePrivateFolder();
    ASSERT_FALSE(mine.isEmpty());
    struct stat info
    {
    };
    ASSERT_EQ(::stat(QFile::encodeName(mine).constData(), &info), 0);
    EXPECT_EQ(info.st_mode & 0777, 0700u);

    // A process that has ended: its pid is free until reused.
    QProcess ended;
    ended.start(u"sh"_s, {u"-c"_s, u"echo $$"_s});
    ASSERT_TRUE(ended.waitForFinished());
    const QString deadPid = QString::fromLatin1(ended.readAllStandardOutput().trimmed());
    const QString stale = QDir::tempPath() + u"/captora-websearch-"_s + deadPid + u"-test"_s;
    ASSERT_TRUE(QDir().mkpath(stale + u"/download-1"_s));
    TempDir scratch;
    scratch.write(u"keep.txt"_s, "keep");
    // A link in a stale folder goes, not what it points to.
    ASSERT_TRUE(QFile::link(scratch.path(QString()), stale + u"/link"_s));
    const QString living = QDir::tempPath() + u"/captora-websearch-1-test"_s; // init runs
    ASSERT_TRUE(QDir().mkpath(living));

    EXPECT_GE(WebDownloads::removeStalePrivateFolders(), 1);
    EXPECT_FALSE(QFileInfo::exists(stale));
    EXPECT_TRUE(QFileInfo::exists(mine));
    EXPECT_TRUE(QFileInfo::exists(living));
    EXPECT_EQ(scratch.read(u"keep.txt"_s), "keep");
    QDir(living).removeRecursively();
    QDir(mine).removeRecursively();
}

TEST(DownloadRulesTest, MovingAFileReplacesTheTarget)
{
    TempDir dir;
    const QString from = dir.write(u"a.rar"_s, "new");
    const QString to = dir.write(u"b.rar"_s, "old");
    QString error;
    EXPECT_TRUE(WebDownloads::moveFile(from, to, &error)) << error.toStdString();
    EXPECT_EQ(dir.read(u"b.rar"_s), "new");
    EXPECT_FALSE(QFileInfo::exists(from));
    EXPECT_FALSE(WebDownloads::moveFile(from, to, &error));
    EXPECT_EQ(error, u"No such file or directory"_s);
}

} // namespace
