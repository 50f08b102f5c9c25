#include <QFile>
#include <QGenericPlugin>
#include <QSslCertificate>
#include <QSslConfiguration>

/// Makes the unchanged program trust only the certificate in TANDRY_TRUSTED_CERTIFICATE, that of a test's statistics
/// service.
class TrustPlugin : public QGenericPlugin
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID QGenericPluginFactoryInterface_iid FILE "trust.json")

public:
    QObject *create(const QString &, const QString &) override
    {
        const QString path = QFile::decodeName(qgetenv("TANDRY_TRUSTED_CERTIFICATE"));
        const QList<QSslCertificate> certificates = QSslCertificate::fromPath(path);
        if (certificates.isEmpty())
            qFatal("No certificate in %s", qPrintable(path));
        QSslConfiguration configuration = QSslConfiguration::defaultConfiguration();
        configuration.setCaCertificates(certificates);
        QSslConfiguration::setDefaultConfiguration(configuration);
        return new QObject;
    }
};

#include "trust.moc"
