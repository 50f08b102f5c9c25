#include "widgetservice.h"

#include "buildsettings.h"
#include "draggablequickview.h"
#include "plainvariant.h"

#include <QMessageBox>
#include <QQuickItem>
#include <QScreen>
#include <QSettings>

namespace {

/// Where a window opens: its nominal size, and the distance of its left edge from the right of the screen.
/// The nominal sizes are fixed and not the windows' real ones, on purpose: a window that is only a little off stays.
struct Placement
{
    int width;
    int height;
    int distance;
};

constexpr int gap = 10;
constexpr int widgetWidth = 275;
constexpr int defaultTop = 35;
constexpr Placement mainPlacement {widgetWidth, 50, widgetWidth + gap + widgetWidth + gap};
constexpr Placement listPlacement {700, 650, gap + 700 + widgetWidth + gap};
constexpr Placement contactPlacement {500, 450, gap + 500 + widgetWidth + gap};

bool fits(const QWindow &window, const Placement &placement)
{
    const QSize available = window.screen()->availableSize();

    return window.x() >= 0 && window.x() + placement.width <= available.width()
        && window.y() >= 0 && window.y() + placement.height <= available.height();
}

void moveToDefault(QWindow &window, const Placement &placement)
{
    window.setPosition(window.screen()->availableSize().width() - placement.distance, defaultTop);
}

void moveIntoScreen(QWindow &window, const Placement &placement)
{
    if (!fits(window, placement)) {
        moveToDefault(window, placement);
    }
}

} // namespace

DraggableQuickView *WidgetService::getView() const
{
    return view;
}

void WidgetService::show()
{
    if (firstShow) {
        moveToDefault(*view, mainPlacement);
    } else {
        moveIntoScreen(*view, mainPlacement);
    }
    // A screen narrower than the distance would have the widget's left edge, or all of it, outside.
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
    // A minimised window counts as visible, and its user misses it.
    if (view->isVisible() && !view->windowStates().testFlag(Qt::WindowMinimized)) {
        hide();
    } else {
        show();
    }
}

void WidgetService::openList()
{
    moveIntoScreen(*listView, listPlacement);
    listView->show();
    incrementCounter(QStringLiteral("ShowListViewCounter"));
}

void WidgetService::closeList()
{
    listView->hide();
}

void WidgetService::openContact()
{
    moveIntoScreen(*contactView, contactPlacement);
    contactView->show();
    incrementCounter(QStringLiteral("ShowContactViewCounter"));
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
    QString identifier = settings->value(QStringLiteral("Uuid")).toString();
    identifier.remove(QLatin1Char('{')).remove(QLatin1Char('}'));

    const QString text = tr("<h3>Vesk Tandry</h3><p>Version %1 - <em>%2</em></p>")
                             .arg(QLatin1String(BuildSettings::version), identifier.split(QLatin1Char('-')).first())
        + tr("<p>%1</p>").arg(QString::fromUtf8(BuildSettings::makerLine));
    QMessageBox::about(dialogParent, tr("Vesk Tandry"), text);
}
