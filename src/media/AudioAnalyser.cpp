// The analyser's thread and its outcome.
#include "AudioAnalysis.h"

#include "Log.h"

AudioAnalyser::AudioAnalyser(AudioAnalysisRequest request, Callbacks callbacks)
    : m_request(std::move(request))
    , m_callbacks(std::move(callbacks))
    , m_analysis(std::make_shared<AudioAnalysis>())
{}

AudioAnalyser::~AudioAnalyser()
{
    cancel();
    wait();
}

void AudioAnalyser::start()
{
    if (m_thread.joinable())
        return;
    m_thread = std::thread([this] { work(); });
}

void AudioAnalyser::cancel()
{
    m_cancelled = true;
}

void AudioAnalyser::wait()
{
    if (m_thread.joinable())
        m_thread.join();
}

AudioAnalysisOutcome AudioAnalyser::outcome() const
{
    return m_outcome;
}

QString AudioAnalyser::message() const
{
    std::lock_guard lock(m_mutex);
    return m_message;
}

AudioAnalysisOutcome AudioAnalyser::run()
{
    if (!m_thread.joinable())
        work();
    else
        wait();
    return m_outcome;
}

void AudioAnalyser::work()
{
    const QString line =
        QStringLiteral("Info: The sound of \"%1\" is not analysed yet.").arg(m_request.moviePath);
    logLine(line);
    {
        std::lock_guard lock(m_mutex);
        m_message = line;
    }
    m_outcome = AudioAnalysisOutcome::Failed;
    if (m_callbacks.finished)
        m_callbacks.finished(AudioAnalysisOutcome::Failed, line);
}
