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

/// The program's one controller. It owns the settings, the three windows, the tray icon and the timers, and passes
/// signals between the documents. Only the documents open the patient database.
///
/// Each chapter has a source file: windows (_views), requests of the desktop (_desktop), tray and refresh (_tray),
/// printing (_printing), usage statistics (_statistics), settings and quitting (_preferences).
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
    // The order is part of the binary interface: the meta-object numbers the slots.
    /// On a click, hides the popups and shows or hides the main widget.
    void trayActivated(QSystemTrayIcon::ActivationReason reason);
    void openContact();
    void closeContact();
    void openList();
    void openAbout();
    void closeList();
    /// Shows the main widget. Moves it to its default position the first time, and when it has left the screen.
    void show();
    void hide();
    /// Shows the main widget without moving it and opens the patient of that id in its editor.
    void openPatient(QString iid);
    /// Makes both patient documents read the database again, then refreshes the tray icon.
    void refreshViews();
    /// Passes the patients just deleted in the list to the main document.
    void removedPatients(QVariant list);
    /// The hourly tick: announces waiting patients; on a new day, refreshes the views.
    void autoRefresh();
    /// Paints the number of waiting patients on the tray icon and stores both counts.
    void refreshIcon();
    void firstRefresh();
    /// Quits, after a confirmation unless the user has switched it off.
    void closeIntent();
    void dontAskBeforeQuit(bool value);
    /// Switches launch at login and announces a change to the main document.
    void setAutorun(bool value);
    void toggleView();
    /// Prints patient rows through the print dialog, titled `title`. Does nothing when `list` is not a list.
    void requestPrint(QString title, QVariant list);
    /// Posts the usage counters. The reply, or a failure, is ignored.
    void sendDataToServer();

protected:
    /// Handles closing by the window manager, new dialogs and the end of the session.
    bool eventFilter(QObject *watched, QEvent *event) override;

    // Protected, so that tests can replace what the screen and the tray return, and read the members.
    virtual QSize availableSize(const QWindow &window) const;
    virtual bool trayTakesMessages() const;
    virtual void showTrayMessage(const QString &title, const QString &text, QSystemTrayIcon::MessageIcon icon,
                                 int durationMs);
    virtual QString report(const QString &title, const QVariantList &rows);
    /// Stores 1 when the key is absent, else its integer plus 1, up to the largest int.
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
