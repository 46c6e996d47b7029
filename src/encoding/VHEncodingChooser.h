#pragma once

#include "FileReadError.h"
#include "VHEncodingTester.h"

#include <memory>
#include <optional>
#include <vector>

class DecodedFile;

// The collection of testers, one per rules file, that finds the encoding of a file whose
// encoding is unknown: every tester scores the file, the best score wins (ties go to the
// tester added first; a score of 0 or less never wins), and the winner's decoding is taken
// only when its score exceeds ratio x the length of the text in UTF-16 units.
class VHEncodingChooser
{
public:
    // The chooser of the process, made on first use from every "*.encoding" file in the
    // resource folder's "encodings" folder, in the order of their file names.
    static VHEncodingChooser &sharedEncodingChooser();

    // The testers of every "*.encoding" file in `folder`, in file-name order; a file that
    // yields no tester is left out.
    static VHEncodingChooser fromFolder(const QString &folder);

    void addEncodingTester(std::unique_ptr<VHEncodingTester> tester);
    const std::vector<std::unique_ptr<VHEncodingTester>> &testers() const { return m_testers; }

    // What the choice for one file found.
    struct Choice
    {
        std::vector<double> scores;             // one per tester, in list order
        const VHEncodingTester *best = nullptr; // none when no score is above 0
        double bestScore = 0;
        std::optional<QString> text;        // the file in the best tester's encoding, if asked for
        qsizetype length = 0;               // of that text, in UTF-16 units
        bool accepted = false;              // bestScore > length x ratio
        std::optional<FileReadError> error; // set when not accepted
    };
    Choice choose(const QString &path, double ratio) const;
    // The same for a file already read. Without the text, the choice holds only its length:
    // a single-byte code page then needs no decoding at all.
    enum class Text { Made, LengthOnly };
    Choice choose(DecodedFile &file, double ratio, Text text = Text::Made) const;

    // The decoded text, or none with the reason in `error` (when given): the decoding's own
    // error, else code 261 with the path and the best tester's encoding.
    std::optional<QString> contentOfFile(const QString &path, double ratio,
                                         FileReadError *error = nullptr) const;

    // The best-scoring tester, or none when no tester scores above 0.
    const VHEncodingTester *chooseEncodingFor(const QString &path) const;

private:
    const VHEncodingTester *bestTester(DecodedFile &file, double *bestScore,
                                       std::vector<double> *scores) const;

    std::vector<std::unique_ptr<VHEncodingTester>> m_testers;
};
