// Feeds arbitrary bytes to the rules-file parser, then scores a text with what it made.
#include "Log.h"
#include "VHEncodingTester.h"

#include <cstddef>
#include <cstdint>

using namespace Qt::StringLiterals;

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    LogCapture quiet;
    const QByteArray bytes(reinterpret_cast<const char *>(data), qsizetype(size));
    if (auto tester = VHEncodingTester::encodingTesterFromData(bytes, u"fuzz.encoding"_s))
        tester->scoreText(u"Où étais-tu ? Где ты был? 你去哪儿了？\r\n"_s);
    return 0;
}
