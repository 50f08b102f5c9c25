#include "widgetservice.h"

#include "autorun.h"
#include "draggablequickview.h"
#include "macversion.h"

#include <QCheckBox>
#include <QMessageBox>
#include <QNetworkAccessManager>
#include <QQmlContext>
#include <QQmlEngine>
#include <QQuickItem>
#include <QSettings>
#include <QSysInfo>
#include <QTimer>
#include <QUuid>

#include <limits>

namespace {

constexpr int refreshIntervalMs = 60 * 60 * 1000;
constexpr int statisticsIntervalMs = 24 * 60 * 60 * 1000;
constexpr double pointFactor = 1.3;

// The product stands in the organisation's place and the maker in the application's: kept, so that an existing
// installation finds its values, and the sibling's are found in the same reversed form.
const QString productOrganization = QStringLiteral("Vesk Tandry");
const QString siblingOrganization = QStringLiteral("Vesk Korrin");
const QString makerApplication = QStringLiteral("Olmeric");

} // namespace

WidgetService::WidgetService(QObject *parent)
    : QObject(parent)
{
    networkManager = new QNetworkAccessManager(this);
    Q_ASSERT(networkManager);

    m_autorun = new Autorun;
    Q_ASSERT(m_autorun);

    settings = new QSettings(productOrganization, makerApplication);
    Q_ASSERT(settings);

    identifyInstallation();
    recordOperatingSystem();
    incrementCounter(QStringLiteral("LaunchCounter"));
    createTrayIcon();
    startRefreshTimer();
    createViews();
    connectDocuments();
    watchDesktop();
    // The main document is connected by now and hears it.
    emit autorunChanged(QVariant(m_autorun->isAutorun())); // clazy:exclude=incorrect-emit
    startStatistics();
}

WidgetService::~WidgetService()
{
    trayIcon->hide();
    delete settings;
    delete m_autorun;
    delete networkManager;
}

/// On the first start takes over the sibling product's identifier, or makes one, and switches launch at login on.
void WidgetService::identifyInstallation()
{
    const QString key = QStringLiteral("Uuid");

    if (settings->value(key).isValid()) {
        return;
    }
    const QSettings sibling(siblingOrganization, makerApplication);
    const QVariant shared = sibling.value(key);
    settings->setValue(key, shared.isValid() ? shared : QVariant(QUuid::createUuid()));
    m_autorun->setAutorun(true);
}

void WidgetService::recordOperatingSystem()
{
    QT_WARNING_PUSH
    QT_WARNING_DISABLE_DEPRECATED
    // The statistics know the systems by these codes.
    const int version = QSysInfo::macVersion();
    QT_WARNING_POP

    settings->setValue(QStringLiteral("OSType"), QStringLiteral("Mac"));
    settings->setValue(QStringLiteral("OSVersion"), version);
    settings->setValue(QStringLiteral("OSVersionReadable"), readableMacVersion(version));
}

void WidgetService::createTrayIcon()
{
    const QIcon icon(QStringLiteral(":/images/tray.png"));

    trayIcon = new QSystemTrayIcon(icon);
    Q_ASSERT(trayIcon);

    // Never shown: it lends its icon to the About box.
    dialogParent = new QWidget(nullptr, Qt::WindowFlags());
    Q_ASSERT(dialogParent);
    dialogParent->setWindowIcon(icon);

    trayIcon->show();
    connect(trayIcon, SIGNAL(activated(QSystemTrayIcon::ActivationReason)),
            this, SLOT(trayActivated(QSystemTrayIcon::ActivationReason)));
    connect(trayIcon, SIGNAL(messageClicked()), this, SLOT(openList()));
}

void WidgetService::startRefreshTimer()
{
    lastRefreshDate = QDate::currentDate();
    refreshTimer = new QTimer(this);
    Q_ASSERT(refreshTimer);
    refreshTimer->setInterval(refreshIntervalMs);
    connect(refreshTimer, SIGNAL(timeout()), this, SLOT(autoRefresh()));
    refreshTimer->start();
}

void WidgetService::createViews()
{
    // Before any view exists, or the transparent colour has no effect.
    QQuickWindow::setDefaultAlphaBuffer(true);

    // Nobody sees the titles: a screen reader and the desktop's list of windows name the windows by them.
    view = new DraggableQuickView(true);
    Q_ASSERT(view);
    view->setTitle(tr("Vesk Tandry"));
    load(*view, QStringLiteral("main"));
    const QQmlEngine *engine = view->engine();
    Q_ASSERT(engine);
    connect(engine, SIGNAL(quit()), this, SIGNAL(quit()));

    contactView = new DraggableQuickView(false);
    Q_ASSERT(contactView);
    contactView->setTitle(tr("Vesk Tandry – contacts"));
    load(*contactView, QStringLiteral("ContactPopup"));

    listView = new DraggableQuickView(false);
    Q_ASSERT(listView);
    listView->setTitle(tr("Vesk Tandry – liste des patients"));
    load(*listView, QStringLiteral("ListPopup"));
}

void WidgetService::load(DraggableQuickView &window, const QString &document)
{
    window.rootContext()->setContextProperty(QStringLiteral("point_factor"), pointFactor);
    window.setSource(QUrl(QStringLiteral("qrc:///qml/%1.qml").arg(document)));
    window.setColor(Qt::transparent);
    window.setIcon(dialogParent->windowIcon());
}

void WidgetService::connectDocuments()
{
    const QObject *main = view->rootObject();
    const QObject *contact = contactView->rootObject();
    const QObject *list = listView->rootObject();

    connect(main, SIGNAL(hide()), this, SLOT(hide()));
    connect(main, SIGNAL(close()), this, SLOT(closeIntent()));
    connect(main, SIGNAL(openContact()), this, SLOT(openContact()));
    connect(main, SIGNAL(openList()), this, SLOT(openList()));
    connect(main, SIGNAL(openAbout()), this, SLOT(openAbout()));
    connect(contact, SIGNAL(closeContact()), this, SLOT(closeContact()));
    connect(list, SIGNAL(closeList()), this, SLOT(closeList()));
    connect(main, SIGNAL(enableDragging()), view, SLOT(enableDragging()));
    connect(contact, SIGNAL(enableDragging()), contactView, SLOT(enableDragging()));
    connect(list, SIGNAL(enableDragging()), listView, SLOT(enableDragging()));
    connect(list, SIGNAL(openPatient(QString)), this, SLOT(openPatient(QString)));
    connect(main, SIGNAL(needRefresh()), this, SLOT(refreshViews()));
    connect(list, SIGNAL(needRefresh()), this, SLOT(refreshViews()));
    connect(list, SIGNAL(removedPatients(QVariant)), this, SLOT(removedPatients(QVariant)));
    connect(list, SIGNAL(requestPrint(QString,QVariant)), this, SLOT(requestPrint(QString,QVariant)));
    connect(main, SIGNAL(ready()), this, SLOT(firstRefresh()));
    connect(main, SIGNAL(autorun(bool)), this, SLOT(setAutorun(bool)));

    connect(this, SIGNAL(autorunChanged(QVariant)), main, SLOT(setAutorun(QVariant)));
}

void WidgetService::startStatistics()
{
    statisticsTimer = new QTimer;
    Q_ASSERT(statisticsTimer);
    statisticsTimer->setInterval(statisticsIntervalMs);
    connect(statisticsTimer, SIGNAL(timeout()), this, SLOT(sendDataToServer()));
    statisticsTimer->start();
    sendDataToServer();
}

/// One more: 1 when the key is absent, else its integer plus 1. The largest integer stays.
void WidgetService::incrementCounter(const QString &key)
{
    const int count = settings->value(key).toInt();

    settings->setValue(key, count < std::numeric_limits<int>::max() ? count + 1 : count);
}

void WidgetService::closeIntent()
{
    const QVariant dontAsk = settings->value(QStringLiteral("DontAskBeforeQuit"));

    if (dontAsk.isValid() && dontAsk.toBool()) {
        emit quit();
        return;
    }

    QMessageBox box;
    auto *checkBox = new QCheckBox(tr("Ne plus me demander"));
    box.setIconPixmap(QIcon(QStringLiteral(":/images/tray.png")).pixmap(64));
    box.setWindowTitle(tr("Vesk Tandry"));
    box.setText(tr("Fermeture de Tandry"));
    box.setInformativeText(tr("Etes-vous sur de vouloir fermer le widget Tandry ?"));
    box.setCheckBox(checkBox);
    box.setStandardButtons(QMessageBox::Ok | QMessageBox::Cancel);
    box.setDefaultButton(QMessageBox::Cancel);
    box.button(QMessageBox::Cancel)->setText(tr("Annuler"));
    // Stored the moment it is toggled, on purpose: ticked and cancelled, the next close quits without asking.
    connect(checkBox, SIGNAL(toggled(bool)), this, SLOT(dontAskBeforeQuit(bool)));

    if (box.exec() == QMessageBox::Ok) {
        emit quit();
    }
}

void WidgetService::dontAskBeforeQuit(bool value)
{
    settings->setValue(QStringLiteral("DontAskBeforeQuit"), value);
}

void WidgetService::setAutorun(bool value)
{
    if (m_autorun->isAutorun() == value) {
        return;
    }
    m_autorun->setAutorun(value);
    emit autorunChanged(QVariant(value));
}
