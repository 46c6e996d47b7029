#include "VHEncodingChooser.h"

#include "DecodedFile.h"
#include "Resources.h"

#include <QDir>

#include <algorithm>

using namespace Qt::StringLiterals;

VHEncodingChooser &VHEncodingChooser::sharedEncodingChooser()
{
    static VHEncodingChooser shared = fromFolder(resourcePath(u"encodings"_s));
    return shared;
}

VHEncodingChooser VHEncodingChooser::fromFolder(const QString &folder)
{
    QStringList names =
        QDir(folder).entryList(QStringList{u"*.encoding"_s}, QDir::Files | QDir::Readable, QDir::Unsorted);
    std::sort(names.begin(), names.end()); // by code units: the same order everywhere
    VHEncodingChooser chooser;
    for (const QString &name : std::as_const(names)) {
        if (std::unique_ptr<VHEncodingTester> tester =
                VHEncodingTester::encodingTesterFor(folder + u'/' + name))
            chooser.addEncodingTester(std::move(tester));
    }
    return chooser;
}

void VHEncodingChooser::addEncodingTester(std::unique_ptr<VHEncodingTester> tester)
{
    if (tester)
        m_testers.push_back(std::move(tester));
}

VHEncodingChooser::Choice VHEncodingChooser::choose(const QString &path, double ratio) const
{
    DecodedFile file = DecodedFile::read(path);
    return choose(file, ratio);
}

VHEncodingChooser::Choice VHEncodingChooser::choose(DecodedFile &file, double ratio, Text text) const
{
    Choice choice;
    choice.best = bestTester(file, &choice.bestScore, &choice.scores);

    // Without a best tester the encoding is 0, which decodes nothing.
    const EncodingId encoding = choice.best ? choice.best->stringEncoding() : Encodings::None;
    std::optional<qsizetype> length;
    if (text == Text::LengthOnly) {
        length = file.textLength(encoding);
    } else if (const QString *decoded = file.text(encoding)) {
        choice.text = *decoded;
        length = decoded->size();
    }
    if (length)
        choice.length = *length;
    else
        choice.error = file.decodingError(encoding);
    choice.accepted = length && choice.bestScore > double(choice.length) * ratio;
    if (!choice.accepted && !choice.error)
        choice.error = FileReadError::inapplicableEncoding(file.path(), encoding);
    return choice;
}

std::optional<QString> VHEncodingChooser::contentOfFile(const QString &path, double ratio,
                                                        FileReadError *error) const
{
    Choice choice = choose(path, ratio);
    if (choice.accepted)
        return std::move(choice.text);
    if (error)
        *error = *choice.error;
    return std::nullopt;
}

const VHEncodingTester *VHEncodingChooser::chooseEncodingFor(const QString &path) const
{
    DecodedFile file = DecodedFile::read(path);
    double bestScore = 0;
    return bestTester(file, &bestScore, nullptr);
}

const VHEncodingTester *VHEncodingChooser::bestTester(DecodedFile &file, double *bestScore,
                                                      std::vector<double> *scores) const
{
    const VHEncodingTester *best = nullptr;
    *bestScore = 0;
    for (const auto &tester : m_testers) {
        const double score = tester->score(file);
        if (scores)
            scores->push_back(score);
        // Strictly greater: ties go to the earlier tester, and 0 or less never wins.
        if (score > *bestScore) {
            *bestScore = score;
            best = tester.get();
        }
    }
    return best;
}
