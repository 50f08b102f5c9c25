#pragma once

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QSslCertificate>
#include <QSslConfiguration>
#include <QSslKey>

/// A new self-signed certificate for 127.0.0.1.
struct Certificate
{
    explicit Certificate(const QString &name)
    {
        const QString path = QDir::homePath() + QLatin1Char('/') + name;
        QProcess openssl;
        openssl.start(QStringLiteral("openssl"),
                      {"req", "-x509", "-newkey", "rsa:2048", "-nodes", "-days", "2", "-subj", "/CN=127.0.0.1",
                       "-addext", "subjectAltName=IP:127.0.0.1", "-keyout", path + ".key", "-out", path + ".pem"});
        if (!openssl.waitForFinished(20000) || openssl.exitCode() != 0)
            qFatal("openssl: %s", openssl.readAllStandardError().constData());
        certificate = QSslCertificate::fromPath(path + ".pem").value(0);
        QFile file(path + ".key");
        if (file.open(QIODevice::ReadOnly))
            key = QSslKey(&file, QSsl::Rsa);
        if (certificate.isNull() || key.isNull())
            qFatal("The certificate %s cannot be read", qPrintable(path));
    }

    /// Makes this process trust this certificate and no other.
    void trust() const
    {
        QSslConfiguration configuration = QSslConfiguration::defaultConfiguration();
        configuration.setCaCertificates({certificate});
        QSslConfiguration::setDefaultConfiguration(configuration);
    }

    QSslCertificate certificate;
    QSslKey key;
};
