// The whole way from a file's bytes to the cues the project holds: reading the file,
// decoding it (byte-order marks, strict UTF-8, the per-language detector), the readers in
// their order, and the repair after loading; as a subtitle file, as a plain-text file and
// as chapter marks. The prompter declines, as a run that cannot ask does.
#include "FuzzSupport.h"
#include "VHVideoText.h"

#include <QLoggingCategory>

#include <cstdlib>
#include <fcntl.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {
QString writeInput(const QString &name, const uint8_t *data, size_t size)
{
    static const QByteArray folder = [] {
        QByteArray pattern = "/tmp/captora-fuzz-XXXXXX";
        if (!::mkdtemp(pattern.data()))
            std::abort();
        return pattern;
    }();
    const QByteArray path = folder + '/' + name.toUtf8();
    const int fd = ::open(path.constData(), O_WRONLY | O_CREAT | O_TRUNC, 0600);
    if (fd < 0 || ::write(fd, data, size) != ssize_t(size))
        std::abort();
    ::close(fd);
    return QString::fromUtf8(path);
}
} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    static const bool once = [] {
        QLoggingCategory::setFilterRules(u"captora.encoding.characters=false"_s);
        return true;
    }();
    (void)once;
    LogCapture quiet;
    const double fps = size > 0 ? double(data[0] % 61) : 0; // 0: the readers' default rate
    const QString subtitle = writeInput(u"fuzz.srt"_s, data, size);
    const std::optional<SubtitleList> cues = VHSubtitle::subtitlesFromFileAtURL(subtitle, fps, 900);
    checkList(cues);
    const QString text = writeInput(u"fuzz.TXT"_s, data, size);
    checkList(VHSubtitle::subtitlesFromFileAtURL(text, fps, 900));
    const std::optional<SubtitleList> marks =
        VHVideoText::videoTextsFromFileAtURL(subtitle, 900, Encodings::None, true);
    checkList(marks);
    if (marks) {
        // The repair leaves chapter marks in order, each ending where the next starts.
        for (qsizetype i = 0; i + 1 < marks->size(); ++i)
            FUZZ_CHECK(!(marks->at(i)->end() > marks->at(i + 1)->start()));
    }
    return 0;
}
