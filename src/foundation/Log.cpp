#include "Log.h"

#include <QDebug>

#include <cstdio>
#include <mutex>

namespace {
std::mutex s_captureMutex;
LogCapture *s_capture = nullptr;

void writeLine(QtMsgType, const QMessageLogContext &, const QString &message)
{
    const QByteArray bytes = message.toUtf8() + '\n';
    std::fwrite(bytes.constData(), 1, size_t(bytes.size()), stderr);
    std::fflush(stderr);
}
} // namespace

void logLine(const QString &line)
{
    {
        std::lock_guard lock(s_captureMutex);
        if (s_capture) {
            s_capture->m_lines.append(line);
            if (s_capture->m_quiet)
                return;
        }
    }
    qInfo().noquote() << line;
}

QString logExcerpt(QStringView line)
{
    constexpr qsizetype shown = 200;
    if (line.size() <= shown)
        return line.toString();
    // Never cut a character outside the BMP in half.
    const qsizetype cut = line.at(shown - 1).isHighSurrogate() ? shown - 1 : shown;
    return line.first(cut).toString() + QStringLiteral("\u2026 (%1 characters)").arg(line.size());
}

void installLogHandler()
{
    qInstallMessageHandler(writeLine);
}

LogCapture::LogCapture(bool quiet)
    : m_quiet(quiet)
{
    std::lock_guard lock(s_captureMutex);
    m_outer = s_capture;
    s_capture = this;
}

LogCapture::~LogCapture()
{
    std::lock_guard lock(s_captureMutex);
    s_capture = m_outer;
}
