#include "widgetservice.h"

#include "buildsettings.h"
#include "draggablequickview.h"
#include "plainvariant.h"
#include "settingskeys.h"

#include <QMessageBox>
#include <QQmlContext>
#include <QQmlEngine>
#include <QQuickItem>
#include <QScreen>
#include <QSettings>

namespace {

constexpr double pointFactor = 1.3;

/// A window's nominal size and the default distance of its left edge from the screen's right edge, in pixels. The
/// nominal size is not the real one: a window slightly off the screen stays where the user put it.
struct Placement
{
    int width;
    int height;
    int distance;
};

constexpr int gap = 10;
constexpr int widgetWidth = 275;
constexpr int defaultTop = 35;
constexpr Placement mainPlacement{widgetWidth, 50, widgetWidth + gap + widgetWidth + gap};
constexpr Placement listPlacement{700, 650, gap + 700 + widgetWidth + gap};
constexpr Placement contactPlacement{500, 450, gap + 500 + widgetWidth + gap};

bool fits(const QWindow &window, QSize available, const Placement &placement)
{
    return window.x() >= 0 && window.x() + placement.width <= available.width() && window.y() >= 0
        && window.y() + placement.height <= available.height();
}

void moveToDefault(QWindow &window, QSize available, const Placement &placement)
{
    window.setPosition(available.width() - placement.distance, defaultTop);
}

void moveIntoScreen(QWindow &window, QSize available, const Placement &placement)
{
    if (!fits(window, available, placement)) {
        moveToDefault(window, available, placement);
    }
}

} // namespace

void WidgetService::createViews()
{
    // Before any view exists: later it has no effect, and the windows would be opaque.
    QQuickWindow::setDefaultAlphaBuffer(true);

    // Frameless windows do not show their title; screen readers and the task list do.
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
    // Without blanks, as Qt normalises a signature:
    // clang-format off
    connect(list, SIGNAL(requestPrint(QString,QVariant)), this, SLOT(requestPrint(QString,QVariant)));
    // clang-format on
    connect(main, SIGNAL(ready()), this, SLOT(firstRefresh()));
    connect(main, SIGNAL(autorun(bool)), this, SLOT(setAutorun(bool)));

    connect(this, SIGNAL(autorunChanged(QVariant)), main, SLOT(setAutorun(QVariant)));
}

DraggableQuickView *WidgetService::getView() const
{
    return view;
}

QSize WidgetService::availableSize(const QWindow &window) const
{
    return window.screen()->availableSize();
}

void WidgetService::show()
{
    if (firstShow) {
        moveToDefault(*view, availableSize(*view), mainPlacement);
    } else {
        moveIntoScreen(*view, availableSize(*view), mainPlacement);
    }
    // On a narrow screen the default position would be left of the screen.
    view->setX(qMax(0, view->x()));
    firstShow = false;
    view->show();
}

void WidgetService::hide()
{
    view->hide();
}

void WidgetService::toggleView()
{
    // Qt counts a minimised window as visible.
    if (view->isVisible() && !view->windowStates().testFlag(Qt::WindowMinimized)) {
        hide();
    } else {
        show();
    }
}

void WidgetService::openList()
{
    moveIntoScreen(*listView, availableSize(*listView), listPlacement);
    listView->show();
    incrementCounter(SettingsKeys::showListViewCounter);
}

void WidgetService::closeList()
{
    listView->hide();
}

void WidgetService::openContact()
{
    moveIntoScreen(*contactView, availableSize(*contactView), contactPlacement);
    contactView->show();
    incrementCounter(SettingsKeys::showContactViewCounter);
}

void WidgetService::closeContact()
{
    contactView->hide();
}

void WidgetService::openPatient(QString iid)
{
    view->show();
    QMetaObject::invokeMethod(view->rootObject(), "openPatient", Q_ARG(QVariant, QVariant(iid)));
}

void WidgetService::removedPatients(QVariant list)
{
    QMetaObject::invokeMethod(view->rootObject(), "removedPatients", Q_ARG(QVariant, plainVariant(list)));
}

void WidgetService::openAbout()
{
    QString identifier = settings->value(SettingsKeys::uuid).toString();
    identifier.remove(QLatin1Char('{')).remove(QLatin1Char('}'));

    const QString text = tr("<h3>Vesk Tandry</h3><p>Version %1 - <em>%2</em></p>")
                             .arg(QLatin1String(BuildSettings::version), identifier.split(QLatin1Char('-')).first())
        + tr("<p>%1</p>").arg(QString::fromUtf8(BuildSettings::makerLine));
    // Qt centres the box on its parent, which is never shown: give it the geometry of the widget's screen.
    dialogParent->setGeometry(view->screen()->availableGeometry());
    QMessageBox::about(dialogParent, tr("Vesk Tandry"), text);
}
