#include "LibraryConverters.h"

#include <unicode/ucnv.h>
#include <unicode/ucnv_err.h>

#include <cerrno>
#include <iconv.h>
#include <memory>
#include <unordered_map>

namespace LibraryConverters {
namespace {
struct IcuCloser
{
    void operator()(UConverter *converter) const { ucnv_close(converter); }
};
using IcuPtr = std::unique_ptr<UConverter, IcuCloser>;

// The converter of this thread for `name`, reset and set to stop at the first byte or
// character it cannot convert; nullptr when ICU has no such converter.
UConverter *icuConverter(const char *name)
{
    thread_local std::unordered_map<std::string, IcuPtr> cache;
    auto it = cache.find(name);
    if (it == cache.end()) {
        UErrorCode status = U_ZERO_ERROR;
        IcuPtr converter(ucnv_open(name, &status));
        if (U_FAILURE(status)) {
            converter.reset();
        } else {
            ucnv_setToUCallBack(converter.get(), UCNV_TO_U_CALLBACK_STOP, nullptr, nullptr, nullptr, &status);
            ucnv_setFromUCallBack(converter.get(), UCNV_FROM_U_CALLBACK_STOP, nullptr, nullptr, nullptr,
                                  &status);
            if (U_FAILURE(status))
                converter.reset();
        }
        it = cache.emplace(name, std::move(converter)).first;
    }
    if (it->second)
        ucnv_reset(it->second.get());
    return it->second.get();
}

struct IconvCloser
{
    void operator()(void *cd) const { iconv_close(static_cast<iconv_t>(cd)); }
};
using IconvPtr = std::unique_ptr<void, IconvCloser>;

#if Q_BYTE_ORDER == Q_LITTLE_ENDIAN
constexpr char kUtf16[] = "UTF-16LE";
#else
constexpr char kUtf16[] = "UTF-16BE";
#endif

// This thread's iconv descriptor from `from` to `to`, reset; nullptr when iconv lacks it.
iconv_t iconvDescriptor(const char *to, const char *from)
{
    thread_local std::unordered_map<std::string, IconvPtr> cache;
    const std::string key = std::string(to) + '\n' + from;
    auto it = cache.find(key);
    if (it == cache.end()) {
        iconv_t cd = iconv_open(to, from);
        IconvPtr held(cd == reinterpret_cast<iconv_t>(-1) ? nullptr : cd);
        it = cache.emplace(key, std::move(held)).first;
    }
    if (!it->second)
        return nullptr;
    iconv_t cd = static_cast<iconv_t>(it->second.get());
    iconv(cd, nullptr, nullptr, nullptr, nullptr);
    return cd;
}

// Runs `cd` over the whole input into `out`, growing it as needed; false on invalid or
// incomplete input.
bool runIconv(iconv_t cd, const char *input, size_t inputSize, QByteArray *out)
{
    out->resize(qsizetype(inputSize * 2 + 16));
    char *in = const_cast<char *>(input);
    size_t inLeft = inputSize;
    size_t written = 0;
    bool flushing = false;
    for (;;) {
        char *outPtr = out->data() + written;
        size_t outLeft = size_t(out->size()) - written;
        const size_t rc = flushing ? iconv(cd, nullptr, nullptr, &outPtr, &outLeft)
                                   : iconv(cd, &in, &inLeft, &outPtr, &outLeft);
        written = size_t(outPtr - out->data());
        if (rc == size_t(-1)) {
            if (errno != E2BIG)
                return false;
            out->resize(out->size() * 2);
            continue;
        }
        if (flushing)
            break;
        flushing = true;
    }
    out->resize(qsizetype(written));
    return true;
}
// Runs one ICU conversion over the rest of the input into `out`, doubling the room
// whenever ICU runs out of it; false when the input does not convert.
template <typename Unit, typename Buffer, typename Step> bool convertGrowing(Buffer &out, Step step)
{
    qsizetype written = 0;
    for (;;) {
        Unit *begin = reinterpret_cast<Unit *>(out.data());
        Unit *target = begin + written;
        UErrorCode status = U_ZERO_ERROR;
        step(&target, begin + out.size(), &status);
        written = target - begin;
        if (status == U_BUFFER_OVERFLOW_ERROR) {
            out.resize(out.size() * 2);
            continue;
        }
        if (U_FAILURE(status))
            return false;
        out.resize(written);
        return true;
    }
}
} // namespace

Result icuDecode(const char *name, const QByteArray &bytes, QString *text)
{
    UConverter *converter = icuConverter(name);
    if (!converter)
        return Result::Unavailable;
    QString out(bytes.size() + 16, Qt::Uninitialized);
    const char *source = bytes.constData();
    const char *sourceEnd = source + bytes.size();
    const bool ok = convertGrowing<UChar>(out, [&](UChar **target, UChar *targetEnd, UErrorCode *status) {
        ucnv_toUnicode(converter, target, targetEnd, &source, sourceEnd, nullptr, true, status);
    });
    if (!ok)
        return Result::Invalid;
    *text = std::move(out);
    return Result::Ok;
}

Result icuEncode(const char *name, QStringView text, QByteArray *bytes)
{
    UConverter *converter = icuConverter(name);
    if (!converter)
        return Result::Unavailable;
    QByteArray out(text.size() * ucnv_getMaxCharSize(converter) + 16, Qt::Uninitialized);
    const UChar *source = reinterpret_cast<const UChar *>(text.utf16());
    const UChar *sourceEnd = source + text.size();
    const bool ok = convertGrowing<char>(out, [&](char **target, char *targetEnd, UErrorCode *status) {
        ucnv_fromUnicode(converter, target, targetEnd, &source, sourceEnd, nullptr, true, status);
    });
    if (!ok)
        return Result::Invalid;
    *bytes = std::move(out);
    return Result::Ok;
}

bool icuIsSingleByte(const char *name)
{
    UConverter *converter = icuConverter(name);
    if (!converter)
        return false;
    const UConverterType type = ucnv_getType(converter);
    return type == UCNV_SBCS || type == UCNV_LATIN_1 || type == UCNV_US_ASCII;
}

bool icuByteUnits(const char *name, std::array<char16_t, 256> *units, char16_t none)
{
    UConverter *converter = icuConverter(name);
    if (!converter)
        return false;
    for (int b = 0; b < 256; ++b) {
        ucnv_reset(converter);
        const char byte = char(b);
        const char *source = &byte;
        UChar out[4];
        UChar *target = out;
        UErrorCode status = U_ZERO_ERROR;
        ucnv_toUnicode(converter, &target, out + 4, &source, &byte + 1, nullptr, true, &status);
        (*units)[b] = U_SUCCESS(status) && target - out == 1 ? char16_t(out[0]) : none;
    }
    return true;
}

Result iconvDecode(const char *name, const QByteArray &bytes, QString *text)
{
    iconv_t cd = iconvDescriptor(kUtf16, name);
    if (!cd)
        return Result::Unavailable;
    QByteArray units;
    if (!runIconv(cd, bytes.constData(), size_t(bytes.size()), &units))
        return Result::Invalid;
    *text = QString(reinterpret_cast<const QChar *>(units.constData()), units.size() / 2);
    return Result::Ok;
}

Result iconvEncode(const char *name, QStringView text, QByteArray *bytes)
{
    iconv_t cd = iconvDescriptor(name, kUtf16);
    if (!cd)
        return Result::Unavailable;
    if (!runIconv(cd, reinterpret_cast<const char *>(text.utf16()), size_t(text.size()) * 2, bytes))
        return Result::Invalid;
    return Result::Ok;
}
} // namespace LibraryConverters
