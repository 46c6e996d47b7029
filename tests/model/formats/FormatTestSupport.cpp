#include "FormatTestSupport.h"

#include <QFile>

#include <cmath>

using namespace Qt::StringLiterals;

::testing::AssertionResult cuesAre(const std::optional<SubtitleList> &cues, const QList<CueValues> &expected)
{
    if (!cues)
        return ::testing::AssertionFailure() << "no cue list";
    if (cues->size() != expected.size())
        return ::testing::AssertionFailure() << cues->size() << " cues, expected " << expected.size();
    for (qsizetype i = 0; i < expected.size(); ++i) {
        const VHSubtitle &cue = *cues->at(i);
        const CueValues &want = expected[i];
        if (cue.string() != want.text || std::abs(cue.start() - want.start) > 1e-6 ||
            std::abs(cue.end() - want.end) > 1e-6 || cue.forced() != want.forced)
            return ::testing::AssertionFailure()
                   << "cue " << i << " is " << cue.description().toStdString() << " (forced " << cue.forced()
                   << "), expected " << want.start << " --> " << want.end << "\n"
                   << want.text.toStdString() << " (forced " << want.forced << ")";
    }
    return ::testing::AssertionSuccess();
}

QString fixturePath(const QString &name)
{
    return QStringLiteral(CAPTORA_TEST_DATA_DIR) + u'/' + name;
}

QString fixtureText(const QString &name)
{
    QFile file(fixturePath(name));
    if (!file.open(QIODevice::ReadOnly))
        ADD_FAILURE() << "missing fixture " << name.toStdString();
    return QString::fromUtf8(file.readAll());
}

QString ScratchFolder::write(const QString &name, const QByteArray &bytes) const
{
    const QString filePath = path(name);
    QFile file(filePath);
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
        ADD_FAILURE() << "cannot write " << filePath.toStdString();
    return filePath;
}

void PrintTo(const QString &text, std::ostream *out)
{
    *out << '"' << text.toStdString() << '"';
}
