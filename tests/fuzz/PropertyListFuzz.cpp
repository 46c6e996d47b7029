// The property-list reader over arbitrary bytes: never a crash, however deep the nesting;
// what it accepts, the writer writes and the reader reads back.
#include "PropertyList.h"

#include <cstddef>
#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    QString error;
    const QVariant root =
        PropertyList::fromXml(QByteArray(reinterpret_cast<const char *>(data), qsizetype(size)), &error);
    if (!root.isValid() && error.isEmpty())
        __builtin_trap(); // a refusal always says why
    if (root.isValid())
        (void)PropertyList::fromXml(PropertyList::toXml(root));
    return 0;
}
