#include "httpsserver.h"

#include <QFile>
#include <QProcess>
#include <QSslSocket>

HttpsServer::HttpsServer(const QSslCertificate &certificate, const QSslKey &key)
    : m_certificate(certificate), m_key(key)
{
    listen(QHostAddress::LocalHost, 0);
}

void HttpsServer::answer(int status, const QByteArray &body, bool sendLength)
{
    m_mode = Mode::Reply;
    m_status = status;
    m_body = body;
    m_sendLength = sendLength;
}

QString HttpsServer::baseAddress() const
{
    return QStringLiteral("https://localhost:%1").arg(serverPort());
}

void HttpsServer::incomingConnection(qintptr descriptor)
{
    auto *socket = new QSslSocket(this);
    if (!socket->setSocketDescriptor(descriptor)) {
        delete socket;
        return;
    }
    ++m_connections;
    socket->setLocalCertificate(m_certificate);
    socket->setPrivateKey(m_key);
    socket->setPeerVerifyMode(QSslSocket::VerifyNone);
    connect(socket, &QSslSocket::readyRead, this, [this, socket]() { readRequest(socket); });
    connect(socket, &QSslSocket::disconnected, socket, &QObject::deleteLater);
    socket->startServerEncryption();
}

void HttpsServer::readRequest(QSslSocket *socket)
{
    QByteArray head = socket->property("head").toByteArray() + socket->readAll();
    socket->setProperty("head", head);
    const int end = head.indexOf("\r\n\r\n");
    if (end < 0 || socket->property("answered").toBool())
        return;
    socket->setProperty("answered", true);
    m_lastRequest = head.left(end);
    if (m_mode == Mode::Reply)
        respond(socket);
}

void HttpsServer::respond(QSslSocket *socket)
{
    QByteArray reason = m_status == 200 ? "OK" : "Internal Server Error";
    QByteArray out = "HTTP/1.1 " + QByteArray::number(m_status) + " " + reason + "\r\n";
    out += "Content-Type: application/json\r\n";
    if (m_sendLength)
        out += "Content-Length: " + QByteArray::number(m_body.size()) + "\r\n";
    out += "Connection: close\r\n\r\n";
    out += m_body;
    socket->write(out);
    socket->disconnectFromHost();
}

bool makeSelfSignedCertificate(const QString &folder, QSslCertificate *certificate, QSslKey *key,
                               QString *error)
{
    const QString certPath = folder + QStringLiteral("/cert.pem");
    const QString keyPath = folder + QStringLiteral("/key.pem");
    QProcess openssl;
    openssl.start(QStringLiteral("openssl"),
                  {"req", "-x509", "-newkey", "ec", "-pkeyopt", "ec_paramgen_curve:prime256v1",
                   "-nodes", "-keyout", keyPath, "-out", certPath, "-days", "2", "-subj",
                   "/CN=localhost", "-addext", "subjectAltName=DNS:localhost,IP:127.0.0.1"});
    if (!openssl.waitForFinished(30000) || openssl.exitCode() != 0) {
        *error = QString::fromLocal8Bit(openssl.readAllStandardError()) + openssl.errorString();
        return false;
    }
    QFile certFile(certPath);
    QFile keyFile(keyPath);
    if (!certFile.open(QIODevice::ReadOnly) || !keyFile.open(QIODevice::ReadOnly)) {
        *error = QStringLiteral("openssl wrote no certificate");
        return false;
    }
    *certificate = QSslCertificate(&certFile, QSsl::Pem);
    *key = QSslKey(&keyFile, QSsl::Ec, QSsl::Pem);
    if (certificate->isNull() || key->isNull()) {
        *error = QStringLiteral("the certificate or key does not load");
        return false;
    }
    return true;
}
