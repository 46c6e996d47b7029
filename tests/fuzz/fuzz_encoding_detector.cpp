// Runs the detector, with every shipped rules file, over arbitrary bytes.
#include "DecodedFile.h"
#include "VHEncodingChooser.h"

#include <QLoggingCategory>

#include <cstddef>
#include <cstdint>

using namespace Qt::StringLiterals;

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    static const VHEncodingChooser &chooser = []() -> const VHEncodingChooser & {
        QLoggingCategory::setFilterRules(u"captora.encoding.characters=false"_s);
        return VHEncodingChooser::sharedEncodingChooser();
    }();
    DecodedFile file(QByteArray(reinterpret_cast<const char *>(data), qsizetype(size)), u"fuzz.srt"_s);
    const VHEncodingChooser::Choice choice = chooser.choose(file, 0.6);
    if (choice.accepted && !choice.text)
        __builtin_trap();
    return 0;
}
