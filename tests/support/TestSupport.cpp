#include "TestSupport.h"

#include <QDir>
#include <QFile>

#include <gtest/gtest.h>

#include <cerrno>
#include <cstring>
#include <sys/mount.h>

using namespace Qt::StringLiterals;

void PrintTo(const QString &text, std::ostream *os)
{
    *os << testing::PrintToString(text.toStdString());
}

void PrintTo(const QByteArray &bytes, std::ostream *os)
{
    *os << testing::PrintToString(bytes.toStdString());
}

QString fixturePath(const QString &module, const QString &name)
{
    return QStringLiteral(CAPTORA_TEST_DATA_DIR) + u'/' + module + u'/' + name;
}

QByteArray fixtureBytes(const QString &module, const QString &name)
{
    QFile file(fixturePath(module, name));
    if (!file.open(QIODevice::ReadOnly)) {
        ADD_FAILURE() << "missing fixture " << qPrintable(file.fileName());
        return {};
    }
    return file.readAll();
}

TempDir::TempDir()
{
    if (!m_dir.isValid())
        ADD_FAILURE() << "could not create a temporary folder";
}

QString TempDir::write(const QString &name, const QByteArray &bytes) const
{
    QFile file(path(name));
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
        ADD_FAILURE() << "could not write " << qPrintable(file.fileName());
    return file.fileName();
}

QByteArray TempDir::read(const QString &name) const
{
    QFile file(path(name));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

QStringList TempDir::entries() const
{
    return QDir(m_dir.path())
        .entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot, QDir::Name);
}

FileSizeLimit::FileSizeLimit(rlim_t bytes)
{
    struct sigaction ignore
    {
    };
    ignore.sa_handler = SIG_IGN;
    sigaction(SIGXFSZ, &ignore, &m_previousAction);
    getrlimit(RLIMIT_FSIZE, &m_previous);
    rlimit lowered = m_previous;
    lowered.rlim_cur = bytes;
    if (setrlimit(RLIMIT_FSIZE, &lowered) != 0)
        ADD_FAILURE() << "could not lower the file size limit";
}

FileSizeLimit::~FileSizeLimit()
{
    setrlimit(RLIMIT_FSIZE, &m_previous);
    sigaction(SIGXFSZ, &m_previousAction, nullptr);
}

SmallTmpfs::SmallTmpfs(qint64 bytes)
{
    const QByteArray options = "size=" + QByteArray::number(bytes) + ",mode=0755";
    const QByteArray where = QFile::encodeName(m_dir.path(QString()));
    m_mounted = ::mount("tmpfs", where.constData(), "tmpfs", 0, options.constData()) == 0;
    if (!m_mounted)
        m_why = u"cannot mount a tmpfs here: "_s + QString::fromLocal8Bit(std::strerror(errno));
}

SmallTmpfs::~SmallTmpfs()
{
    if (m_mounted)
        ::umount2(QFile::encodeName(m_dir.path(QString())).constData(), MNT_DETACH);
}

QString SmallTmpfs::writeAndFill(const QString &name, const QByteArray &bytes) const
{
    const QString written = m_dir.write(name, bytes);
    QFile filler(m_dir.path(u"filler"_s));
    if (!filler.open(QIODevice::WriteOnly | QIODevice::Unbuffered)) {
        ADD_FAILURE() << "could not create the filler file";
        return written;
    }
    const QByteArray block(4096, 'f');
    while (filler.write(block) == block.size()) {
    }
    // The last page may still take a few bytes.
    while (filler.write("f", 1) == 1) {
    }
    return written;
}

PromptAnswer ScriptedPrompter::ask(const Prompt &prompt)
{
    prompts.append(prompt);
    if (answers.isEmpty())
        return PromptAnswer{int(prompt.buttons.size()) - 1, prompt.selectedTag, prompt.checkboxChecked};
    return answers.takeFirst();
}
