#include "FFmpegVersion.h"

extern "C" {
#include <libavcodec/avcodec.h>
#include <libavformat/avformat.h>
#include <libavutil/avutil.h>
}

using namespace Qt::StringLiterals;

namespace {
QString libraryVersion(const char *name, unsigned version)
{
    return u"%1 %2.%3.%4"_s.arg(QLatin1StringView(name))
        .arg(AV_VERSION_MAJOR(version))
        .arg(AV_VERSION_MINOR(version))
        .arg(AV_VERSION_MICRO(version));
}
} // namespace

QString ffmpegVersion()
{
    return u"%1 (%2, %3, %4)"_s.arg(
        QString::fromUtf8(av_version_info()), libraryVersion("libavformat", avformat_version()),
        libraryVersion("libavcodec", avcodec_version()), libraryVersion("libavutil", avutil_version()));
}
