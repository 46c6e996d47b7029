// Naming and finding the files beside a movie, and the language menu built from them.
#include "CTFileHelper.h"
#include "ProjectFixture.h"

#include <QDir>

using namespace Qt::StringLiterals;

namespace {
QStringList titlesOf(const QList<LanguageButtonItem> &items)
{
    QStringList titles;
    for (const LanguageButtonItem &item : items)
        titles << (item.separator ? u"---"_s : item.title);
    return titles;
}

const QStringList Commands{u"Add Empty Subtitle"_s, u"Open Existing Subtitle"_s, u"Download via Web Search"_s,
                           u"Rescan Subtitles"_s, u"---"_s};
} // namespace

TEST_F(ProjectTest, PathWithBaseSkipsTakenNamesButNeverTheComparedFile)
{
    const QString base = dir.path(u"Film"_s);
    dir.write(u"Film.en.srt"_s, "x");
    dir.write(u"Film-1.en.srt"_s, "x");
    EXPECT_EQ(CTFileHelper::pathWithBase(base, u"en.srt"_s, QString()), dir.path(u"Film-2.en.srt"_s));
    EXPECT_EQ(CTFileHelper::pathWithBase(base, u"en.srt"_s, dir.path(u"Film.en.srt"_s)), dir.path(u"Film.en.srt"_s));
    EXPECT_EQ(CTFileHelper::pathWithBase(base, u"en.srt"_s, dir.path(u"Film-1.en.srt"_s)),
              dir.path(u"Film-1.en.srt"_s));
    EXPECT_EQ(CTFileHelper::pathWithBase(base, u"de.srt"_s, QString()), dir.path(u"Film.de.srt"_s));
    EXPECT_EQ(CTFileHelper::pathWithBase(QString(), u"srt"_s, QString()), u""_s);
}

TEST_F(ProjectTest, ScanFindsSubRipFilesContainingTheMovieName)
{
    for (const char *name : {"Film.srt", "Film.en.srt", "Film.xx.srt", "Film.EN.SRT", "Film.en.sub",
                             "Film Trailer.en.srt", "Other.en.srt", "film.de.srt"})
        dir.write(QString::fromLatin1(name), "x");
    QMap<QString, LanguagePtr> found;
    for (const LanguagePtr &language : CTFileHelper::languagesAtBasePath(dir.path(u"Film"_s)))
        found.insert(QFileInfo(language->path()).fileName(), language);

    EXPECT_EQ(found.keys(), (QStringList{u"Film Trailer.en.srt"_s, u"Film.EN.SRT"_s, u"Film.en.srt"_s,
                                         u"Film.srt"_s, u"Film.xx.srt"_s}));
    EXPECT_EQ(found[u"Film.srt"_s]->displayName(), u"Unknown Subtitle"_s);
    EXPECT_EQ(found[u"Film.en.srt"_s]->displayName(), u"English Subtitle"_s);
    EXPECT_EQ(found[u"Film.en.srt"_s]->localeIdentifier(), u"en"_s);
    EXPECT_EQ(found[u"Film.xx.srt"_s]->displayName(), u"Unknown Subtitle"_s);
    EXPECT_TRUE(found[u"Film.xx.srt"_s]->localeIdentifier().isEmpty());
    EXPECT_TRUE(found[u"Film Trailer.en.srt"_s]->localeIdentifier().isEmpty());
    EXPECT_EQ(found[u"Film Trailer.en.srt"_s]->displayName(), u"Unknown Subtitle"_s);

    EXPECT_TRUE(CTFileHelper::languagesAtBasePath(QString()).isEmpty());
    EXPECT_TRUE(CTFileHelper::languagesAtBasePath(dir.path(u"missing/Film"_s)).isEmpty());
}

TEST_F(ProjectTest, LocaleAndExtensionAreStrippedOnlyForRealLocales)
{
    EXPECT_EQ(CTFileHelper::stringByDeletingLocaleAndPathExtension(u"/m/Film.en.srt"_s), u"/m/Film"_s);
    EXPECT_EQ(CTFileHelper::stringByDeletingLocaleAndPathExtension(u"/m/Film.pt_BR.srt"_s), u"/m/Film"_s);
    EXPECT_EQ(CTFileHelper::stringByDeletingLocaleAndPathExtension(u"/m/Film.part2.srt"_s), u"/m/Film.part2"_s);
    EXPECT_EQ(CTFileHelper::stringByDeletingLocaleAndPathExtension(u"/m/Film.srt"_s), u"/m/Film"_s);

    EXPECT_EQ(CTFileHelper::localeForLanguageCode(u"deu"_s), u"de"_s);
    EXPECT_EQ(CTFileHelper::localeForLanguageCode(u"ger"_s), u"de"_s);
    EXPECT_TRUE(CTFileHelper::localeForLanguageCode(u"qqq"_s).isNull());
}

TEST_F(ProjectTest, MenuRowsForASubtitleFile)
{
    dir.write(u"Film.srt"_s, "1\n00:00:01,000 --> 00:00:02,000\nA\n\n");
    dir.write(u"Film.de.srt"_s, "1\n00:00:01,000 --> 00:00:02,000\nB\n\n");
    dir.write(u"Film.en.srt"_s, "1\n00:00:01,000 --> 00:00:02,000\nC\n\n");
    dir.write(u"Film.vtt"_s, "WEBVTT\n\nChapter 1\n00:00:00.000 --> 00:00:10.000\nIntro\n\n");
    openMovie();
    project->updateLanguages(); // the player kind is known now

    ASSERT_EQ(project->subtitlePath(), dir.path(u"Film.en.srt"_s)); // "Locale" is en
    EXPECT_EQ(titlesOf(view.buttonItems),
              (Commands + QStringList{u"Delete Current Language"_s, u"Set Subtitle Language"_s, u"---"_s,
                                      u"Chapter Marks"_s, u"English Subtitle"_s, u"German Subtitle"_s,
                                      u"Unknown Subtitle"_s, u"---"_s, u"Embed Subtitles into Movie"_s}));
    EXPECT_TRUE(view.buttonItems[6].submenu);
    EXPECT_EQ(project->selectedLanguageIndex(), 9);
    EXPECT_EQ(view.buttonSelected, 9);
    EXPECT_EQ(project->languages()[8]->action(), u"editChapterMark:"_s);

    // Choosing a file row switches to it; choosing a command leaves the file selected.
    project->selectSubtitleLanguage(10);
    EXPECT_EQ(project->subtitlePath(), dir.path(u"Film.de.srt"_s));
    EXPECT_EQ(view.buttonSelected, 10);
    EXPECT_EQ(log.count(u"Warning: Current subtitle not found in Button"_s), 0);
}

TEST_F(ProjectTest, MenuRowsWhileEditingChapterMarks)
{
    dir.write(u"Film.en.srt"_s, "1\n00:00:01,000 --> 00:00:02,000\nC\n\n");
    dir.write(u"Film.vtt"_s, "WEBVTT\n\nChapter 1\n00:00:00.000 --> 00:00:10.000\nIntro\n\n");
    openMovie();
    project->setSubtitlePath(dir.path(u"Film.vtt"_s));

    ASSERT_TRUE(project->isChaptermark());
    EXPECT_TRUE(prompter.prompts.isEmpty()); // the chapter file itself: nothing to overwrite
    EXPECT_EQ(titlesOf(view.buttonItems),
              (Commands + QStringList{u"Delete Chapter Marks File"_s, u"---"_s, u"Chapter Marks"_s,
                                      u"English Subtitle"_s, u"---"_s, u"Embed Subtitles into Movie"_s}));
    EXPECT_EQ(project->selectedLanguageIndex(), 7);
}

TEST_F(ProjectTest, ButtonTitlesAreMadeUniqueWithTildes)
{
    const LanguageList languages{
        CTLanguage::languageWithDisplayName(u"A~"_s, u"x:"_s), CTLanguage::languageWithDisplayName(u"A"_s, u"x:"_s),
        CTLanguage::languageWithDisplayName(u""_s, QString()), CTLanguage::languageWithDisplayName(u"A"_s, u"x:"_s),
        CTLanguage::languageWithDisplayName(u""_s, QString())};
    EXPECT_EQ(titlesOf(CTWindowController::languageButtonItems(languages)),
              (QStringList{u"A~"_s, u"A"_s, u"---"_s, u"A~~"_s, u"---"_s}));
}

TEST_F(ProjectTest, MenuWithoutAProjectLogsThatTheFileIsMissing)
{
    project->updateLanguages();
    EXPECT_EQ(project->selectedLanguageIndex(), -1);
    EXPECT_EQ(log.count(u"Warning: Current subtitle not found in Button"_s), 1);
    EXPECT_FALSE(titlesOf(view.buttonItems).contains(u"Embed Subtitles into Movie"_s));
}
