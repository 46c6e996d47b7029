#include "WebSearchTestSupport.h"

#include <QDir>
#include <QFileInfo>
#include <QProcess>
#include <QTcpServer>
#include <QTcpSocket>
#include <QTemporaryDir>
#include <QUrl>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

QString testArchive(const QString &name)
{
    // Made once for all test programs of the build (each test runs in a process of its own):
    // in a fresh folder that is then renamed into place, so that two tests running at once
    // never see half a set.
    static const QString folder = [] {
        const QString script = QStringLiteral(CAPTORA_WEBSEARCH_TEST_DIR "/make_archives.py");
        const QString made = QStringLiteral(CAPTORA_WEBSEARCH_ARCHIVE_DIR);
        const QFileInfo stamp(made + u"/Film.srt"_s);
        if (stamp.exists() && stamp.lastModified() >= QFileInfo(script).lastModified())
            return made;
        QTemporaryDir fresh(made + u"-XXXXXX"_s);
        QProcess python;
        python.start(u"python3"_s, {script, fresh.path()});
        const bool ok = python.waitForFinished(300000) && python.exitStatus() == QProcess::NormalExit &&
                        python.exitCode() == 0;
        EXPECT_TRUE(ok) << python.readAllStandardError().toStdString();
        QDir(made).removeRecursively();
        if (QDir().rename(fresh.path(), made))
            fresh.setAutoRemove(false);
        return made;
    }();
    return QDir(folder).filePath(name);
}

LocalHttpServer::LocalHttpServer()
    : m_server(std::make_unique<QTcpServer>())
{
    EXPECT_TRUE(m_server->listen(QHostAddress::LocalHost, 0));
    QObject::connect(m_server.get(), &QTcpServer::newConnection, m_server.get(), [this] {
        while (QTcpSocket *socket = m_server->nextPendingConnection()) {
            auto buffer = std::make_shared<QByteArray>();
            QObject::connect(socket, &QTcpSocket::disconnected, socket, &QObject::deleteLater);
            QObject::connect(socket, &QTcpSocket::readyRead, socket, [this, socket, buffer] {
                *buffer += socket->readAll();
                if (!buffer->contains("\r\n\r\n"))
                    return;
                const QList<QByteArray> line = buffer->left(buffer->indexOf("\r\n")).split(' ');
                buffer->clear();
                const QString path = line.size() > 1 ? QString::fromUtf8(line[1]) : QString();
                if (path != u"/favicon.ico"_s) // the browser asks for it on its own
                    m_requests << path;
                const QString routePath = QUrl(path).path();
                QByteArray head;
                QByteArray body;
                qsizetype sent = -1;
                if (const auto it = m_routes.constFind(routePath); it != m_routes.constEnd()) {
                    body = it->body;
                    sent = it->breakAfter;
                    head = "HTTP/1.1 200 OK\r\nContent-Type: " + it->contentType + "\r\n";
                    if (!it->contentDisposition.isEmpty())
                        head += "Content-Disposition: " + it->contentDisposition + "\r\n";
                } else {
                    body = "<html><body>Not here</body></html>";
                    head = "HTTP/1.1 404 Not Found\r\nContent-Type: text/html\r\n";
                }
                head +=
                    "Content-Length: " + QByteArray::number(body.size()) + "\r\nConnection: close\r\n\r\n";
                socket->write(head);
                if (sent >= 0) {
                    socket->write(body.left(sent));
                    socket->flush();
                    socket->abort();
                    return;
                }
                socket->write(body);
                socket->disconnectFromHost();
            });
        }
    });
}

LocalHttpServer::~LocalHttpServer() = default;

QString LocalHttpServer::url(const QString &path) const
{
    return u"http://127.0.0.1:%1%2"_s.arg(m_server->serverPort()).arg(path);
}
