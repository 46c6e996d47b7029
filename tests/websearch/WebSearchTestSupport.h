#pragma once

#include <QByteArray>
#include <QHash>
#include <QList>
#include <QString>
#include <QStringList>

#include <memory>

class QTcpServer;

// The path of an archive (or file) that make_archives.py wrote: "good.zip", "bomb.zip",
// "sub.rar", ... Made once per build tree (again when the script changes), under
// build/.../tests/websearch/archives.
QString testArchive(const QString &name);

// A small HTTP server on 127.0.0.1 for the browser to load from: each path answers with a
// fixed response; every request's path is kept (but the browser's own /favicon.ico). One
// request per connection.
class LocalHttpServer
{
public:
    struct Response
    {
        QByteArray contentType;
        QByteArray body;
        QByteArray contentDisposition; // sent when not empty
        // Announces the whole body but sends only this many bytes, then drops the connection.
        qsizetype breakAfter = -1;
    };

    LocalHttpServer();
    ~LocalHttpServer();
    void route(const QString &path, const Response &response) { m_routes.insert(path, response); }
    // "http://127.0.0.1:<port><path>"
    QString url(const QString &path) const;
    const QStringList &requests() const { return m_requests; }

private:
    std::unique_ptr<QTcpServer> m_server;
    QHash<QString, Response> m_routes;
    QStringList m_requests;
};
