#include "VHSubtitle.h"

std::optional<SubtitleList> VHSubtitle::subtitlesFromText(const QString &text, double length)
{
    // Lines are taken as they stand: no trimming, empty lines included, and a carriage
    // return before the line feed stays part of its line.
    const QList<QStringView> lines = QStringView(text).split(u'\n');
    const double slot = length > 0 ? length / double(lines.size()) : 4;
    SubtitleList result;
    result.reserve(lines.size());
    for (qsizetype i = 0; i < lines.size(); ++i)
        result.append(
            std::make_shared<VHSubtitle>(lines[i].toString(), double(i) * slot, double(i + 1) * slot));
    if (result.isEmpty())
        return std::nullopt;
    return result;
}
