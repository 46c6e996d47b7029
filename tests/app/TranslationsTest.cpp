// The translation tables are complete: every text of the sources is in every table and
// translated, and every translation keeps its placeholders and its menu accelerator.
#include "TestSupport.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QProcess>
#include <QRegularExpression>
#include <QSet>
#include <QXmlStreamReader>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {
const QStringList Languages{u"de"_s, u"es"_s, u"fr"_s, u"ru"_s};

QString sourceDir()
{
    return QString::fromUtf8(CAPTORA_SOURCE_DIR);
}

struct Message
{
    QString context, source, comment;
    QStringList translations; // one, or the plural forms
    bool unfinished = false;
};

QList<Message> readTable(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return {};
    QList<Message> messages;
    QXmlStreamReader xml(&file);
    QString context;
    Message message;
    while (!xml.atEnd() && !xml.hasError()) {
        if (xml.readNext() != QXmlStreamReader::StartElement)
            continue;
        const auto name = xml.name();
        if (name == u"name"_s) {
            context = xml.readElementText();
        } else if (name == u"message"_s) {
            message = Message{context, {}, {}, {}, false};
        } else if (name == u"source"_s) {
            message.source = xml.readElementText();
        } else if (name == u"comment"_s) {
            message.comment = xml.readElementText();
        } else if (name == u"translation"_s) {
            message.unfinished = xml.attributes().value(u"type"_s) == u"unfinished"_s;
            // Either text, or numerus forms.
            QString text;
            while (!xml.atEnd()) {
                const auto token = xml.readNext();
                if (token == QXmlStreamReader::Characters) {
                    text += xml.text();
                } else if (token == QXmlStreamReader::StartElement && xml.name() == u"numerusform"_s) {
                    message.translations << xml.readElementText();
                } else if (token == QXmlStreamReader::EndElement && xml.name() == u"translation"_s) {
                    break;
                }
            }
            if (message.translations.isEmpty())
                message.translations << text;
            messages << message;
        }
    }
    EXPECT_FALSE(xml.hasError()) << path.toStdString() << ": " << xml.errorString().toStdString();
    return messages;
}

QSet<QString> placeholders(const QString &text)
{
    static const QRegularExpression pattern(u"%(?:n|L?[1-9])"_s);
    QSet<QString> found;
    for (auto it = pattern.globalMatch(text); it.hasNext();)
        found << it.next().captured();
    return found;
}

// The one accelerator marker of a menu title ("&File"); "&&" is a literal ampersand.
qsizetype accelerators(QString text)
{
    return text.remove(u"&&"_s).count(u'&');
}

QString describe(const Message &message)
{
    return message.context + u": \""_s + message.source + u'"';
}
} // namespace

// The tables brought up to date with the sources (as scripts/update-translations does, on
// copies) gain no entry and lose none, and lrelease finds nothing unfinished.
TEST(Translations, CompleteForTheSources)
{
    TempDir dir;
    for (const QString &language : Languages) {
        const QString name = u"captora_%1.ts"_s.arg(language);
        ASSERT_TRUE(QFile::copy(sourceDir() + u"/translations/"_s + name, dir.path(name)))
            << name.toStdString();
    }
    QProcess update;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(u"CAPTORA_TS_DIR"_s, dir.path(QString()));
    environment.insert(u"LUPDATE"_s, QString::fromUtf8(CAPTORA_LUPDATE));
    update.setProcessEnvironment(environment);
    update.setProcessChannelMode(QProcess::MergedChannels);
    update.start(sourceDir() + u"/scripts/update-translations"_s, {});
    ASSERT_TRUE(update.waitForFinished(120000));
    ASSERT_EQ(update.exitCode(), 0) << update.readAll().toStdString();

    for (const QString &language : Languages) {
        const QString name = u"captora_%1.ts"_s.arg(language);
        SCOPED_TRACE(name.toStdString());
        const QList<Message> stored = readTable(sourceDir() + u"/translations/"_s + name);
        const QList<Message> updated = readTable(dir.path(name));
        ASSERT_FALSE(stored.isEmpty());
        QSet<QString> storedKeys, updatedKeys;
        for (const Message &m : stored)
            storedKeys << m.context + u'\n' + m.source + u'\n' + m.comment;
        for (const Message &m : updated)
            updatedKeys << m.context + u'\n' + m.source + u'\n' + m.comment;
        for (const QString &key : updatedKeys - storedKeys)
            ADD_FAILURE() << "not in the table (run scripts/update-translations and translate it): "
                          << QString(key).replace(u'\n', u" | "_s).toStdString();
        for (const QString &key : storedKeys - updatedKeys)
            ADD_FAILURE() << "no longer in the sources (run scripts/update-translations): "
                          << QString(key).replace(u'\n', u" | "_s).toStdString();

        QProcess release;
        release.setProcessChannelMode(QProcess::MergedChannels);
        release.start(QString::fromUtf8(CAPTORA_LRELEASE),
                      {dir.path(name), u"-qm"_s, dir.path(language + u".qm"_s)});
        ASSERT_TRUE(release.waitForFinished(60000));
        const QString report = QString::fromUtf8(release.readAll());
        ASSERT_EQ(release.exitCode(), 0) << report.toStdString();
        const QRegularExpressionMatch counts =
            QRegularExpression(u"\\((\\d+) finished and (\\d+) unfinished\\)"_s).match(report);
        ASSERT_TRUE(counts.hasMatch()) << report.toStdString();
        EXPECT_EQ(counts.captured(2).toInt(), 0) << report.toStdString();
        EXPECT_EQ(counts.captured(1).toInt(), updated.size()) << report.toStdString();
        EXPECT_FALSE(report.contains(u"untranslated"_s)) << report.toStdString();
    }
}

// A translation that lost "%1" would drop a file name from a question; one that lost the
// menu's "&" would lose its keyboard access.
TEST(Translations, KeepPlaceholdersAndAccelerators)
{
    for (const QString &language : Languages) {
        const QString name = u"captora_%1.ts"_s.arg(language);
        SCOPED_TRACE(name.toStdString());
        const QList<Message> messages = readTable(sourceDir() + u"/translations/"_s + name);
        ASSERT_FALSE(messages.isEmpty());
        for (const Message &message : messages) {
            EXPECT_FALSE(message.unfinished) << describe(message).toStdString();
            // Russian has three plural forms, the others two.
            if (message.source.contains(u"%n"_s)) {
                EXPECT_EQ(message.translations.size(), language == u"ru"_s ? 3 : 2)
                    << describe(message).toStdString();
            }
            for (const QString &translation : message.translations) {
                EXPECT_FALSE(translation.trimmed().isEmpty()) << describe(message).toStdString();
                QSet<QString> expected = placeholders(message.source);
                // A plural form may spell its number out ("one line"), so %n is not required.
                QSet<QString> found = placeholders(translation);
                expected.remove(u"%n"_s);
                found.remove(u"%n"_s);
                EXPECT_EQ(found, expected)
                    << describe(message).toStdString() << " -> " << translation.toStdString();
                EXPECT_EQ(accelerators(translation), accelerators(message.source))
                    << describe(message).toStdString() << " -> " << translation.toStdString();
            }
        }
    }
}
