#pragma once

#include <QDate>
#include <QMap>
#include <QObject>
#include <QStringList>
#include <QSystemTrayIcon>
#include <QVariant>

class Autorun;
class DraggableQuickView;
class QDialog;
class QFont;
class QNetworkAccessManager;
class QSettings;
class QTimer;
class QWidget;
class QWindow;

/// The one controller of the program: owns the settings, the three windows, the tray icon and the timers, and lets the
/// documents talk to each other. It never opens the patient database; the documents do.
///
/// One source file per chapter: windows (widgetservice_views), what the desktop wants of them (widgetservice_desktop),
/// tray and refresh cycle (widgetservice_tray), printing (widgetservice_printing), usage statistics
/// (widgetservice_statistics), settings and the question before quitting (widgetservice_preferences). The constructor,
/// which calls them in order, is in widgetservice.
class WidgetService : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY(WidgetService)

public:
    explicit WidgetService(QObject *parent);
    ~WidgetService() override;

    /// The main widget's window; lives until the process ends.
    DraggableQuickView *getView() const;

signals:
    void quit();
    void autorunChanged(QVariant value);

public slots:
    // The order of the slots is part of the interface: they are reached by index, too.
    /// Shows or hides the main widget on a click; hides the popups.
    void trayActivated(QSystemTrayIcon::ActivationReason reason);
    void openContact();
    void closeContact();
    void openList();
    void openAbout();
    void closeList();
    /// Shows the main widget: at its default place the first time or when it has left the screen, else where it is.
    void show();
    void hide();
    /// Shows the main widget wherever it is and opens the patient of that id in its editor.
    void openPatient(QString iid);
    /// Lets both patient documents read the database again and brings the tray icon up to date.
    void refreshViews();
    /// Tells the main document which patients have just been deleted.
    void removedPatients(QVariant list);
    /// The hourly tick: announces waiting patients, refreshes on a new day.
    void autoRefresh();
    /// Paints the number of waiting patients on the tray icon and stores both counts.
    void refreshIcon();
    void firstRefresh();
    /// Quits, after asking unless the user wished not to be asked.
    void closeIntent();
    void dontAskBeforeQuit(bool value);
    /// Switches launch at login; tells the main document when that changed anything.
    void setAutorun(bool value);
    void toggleView();
    /// Prints a list of patient rows, in a dialog titled with the list's title. Nothing when `list` is no list.
    void requestPrint(QString title, QVariant list);
    /// Posts the usage counters; whatever becomes of the post is ignored.
    void sendDataToServer();

protected:
    /// What the desktop wants of the windows: that they close, that a dialog comes up, that the session ends.
    bool eventFilter(QObject *watched, QEvent *event) override;

    // What the service asks of the screen and the tray, and what it made: open to a derived class, so that a test can
    // choose the one and look at the other.
    virtual QSize availableSize(const QWindow &window) const;
    virtual bool trayTakesMessages() const;
    virtual void showTrayMessage(const QString &title, const QString &text, QSystemTrayIcon::MessageIcon icon,
                                 int durationMs);
    virtual QString report(const QString &title, const QVariantList &rows);
    /// One more: 1 when the key is absent, else its integer plus 1. The largest integer stays.
    virtual void incrementCounter(const QString &key);
    static QFont badgeFont();

    // The views, the tray icon, the dialog parent and the statistics timer live until the process ends.
    DraggableQuickView *view;
    DraggableQuickView *contactView;
    DraggableQuickView *listView;
    QSystemTrayIcon *trayIcon;
    QTimer *refreshTimer;
    QDate lastRefreshDate;
    QWidget *dialogParent;
    bool firstShow = true;
    QSettings *settings;
    Autorun *m_autorun;
    QNetworkAccessManager *networkManager;
    qint32 lastNotifiedCount = 0;
    QTimer *statisticsTimer;

private:
    // The constructor's steps, in its order.
    void createNetworkManager();
    void createAutorun();
    void openSettings();
    void identifyInstallation();
    void recordOperatingSystem();
    void createTrayIcon();
    void startRefreshTimer();
    void createViews();
    void connectDocuments();
    void watchDesktop();
    void announceAutorun();
    void startStatistics();

    void load(DraggableQuickView &window, const QString &document);
    bool closeByDesktop(QObject *window);
    void prepareDialog(QDialog &dialog);

    int patientCount(const char *property, bool &converted) const;
    void compileMessage();
    void collectGarbage();
    QIcon badgedIcon(const QIcon &icon, int count) const;

    void appendReportRow(QString &html, const QVariant &row);
    QStringList getDataFromMap(QMap<QString, QVariant> &map);

    QByteArray statisticsBody() const;
};
