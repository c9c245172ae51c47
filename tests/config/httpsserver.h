#pragma once

#include <QByteArray>
#include <QList>
#include <QSslCertificate>
#include <QSslKey>
#include <QTcpServer>

class QSslSocket;

// A one-purpose HTTPS server on 127.0.0.1 for the update check tests: it
// reads one request per connection and answers as it was told to.
class HttpsServer : public QTcpServer
{
    Q_OBJECT

public:
    enum class Mode { Reply, Silent };

    HttpsServer(const QSslCertificate &certificate, const QSslKey &key);

    // The next answers: a status line and a body. With `sendLength` false
    // the body is streamed without a length and ended by closing.
    void answer(int status, const QByteArray &body, bool sendLength = true);
    // Accepts and encrypts, then never answers.
    void stayingSilent() { m_mode = Mode::Silent; }

    QString baseAddress() const;
    int connections() const { return m_connections; }
    // The head (request line and headers) of the last request received.
    QByteArray lastRequest() const { return m_lastRequest; }

protected:
    void incomingConnection(qintptr descriptor) override;

private:
    void readRequest(QSslSocket *socket);
    void respond(QSslSocket *socket);

    QSslCertificate m_certificate;
    QSslKey m_key;
    Mode m_mode = Mode::Reply;
    int m_status = 200;
    QByteArray m_body;
    bool m_sendLength = true;
    int m_connections = 0;
    QByteArray m_lastRequest;
};

// A self-signed certificate for "localhost" / 127.0.0.1, made by openssl in
// `folder`. Returns false (with the reason in `error`) when that fails.
bool makeSelfSignedCertificate(const QString &folder, QSslCertificate *certificate, QSslKey *key,
                               QString *error);
