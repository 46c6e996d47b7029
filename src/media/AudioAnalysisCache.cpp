// The analyses' cache on disk.
#include "AudioAnalysis.h"

namespace AudioAnalysisCache {

QString defaultFolder()
{
    return {};
}

QString fileIdentity(const QString &moviePath)
{
    Q_UNUSED(moviePath);
    return {};
}

QString cacheFilePath(const AudioAnalysisRequest &request)
{
    Q_UNUSED(request);
    return {};
}

bool load(const AudioAnalysisRequest &request, AudioAnalysis &analysis)
{
    Q_UNUSED(request);
    Q_UNUSED(analysis);
    return false;
}

bool store(const AudioAnalysisRequest &request, const AudioAnalysis &analysis, QString *error)
{
    Q_UNUSED(request);
    Q_UNUSED(analysis);
    Q_UNUSED(error);
    return false;
}

} // namespace AudioAnalysisCache
