#include "restorewindow.h"

#include "patientsdialog.h"

#include <QAccessible>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLocale>
#include <QMessageBox>
#include <QPushButton>
#include <QTreeWidget>
#include <QVBoxLayout>

namespace {

constexpr int widgetCheckIntervalMs = 500;
constexpr int listWidth = 640;
constexpr int listHeight = 320;

QString dayOf(const Copy &copy)
{
    QString day = QLocale(QLocale::French).toString(copy.day, QStringLiteral("dddd d MMMM yyyy"));
    switch (copy.kind) {
    case Copy::BeforeUpgrade: return day + QStringLiteral(", avant la mise à niveau");
    case Copy::BeforeReturn: return day + QStringLiteral(", avant un retour");
    case Copy::Daily: break;
    }
    return day;
}

} // namespace

RestoreWindow::RestoreWindow(const StoreFiles &store)
    : m_restorer(store)
    , m_notice(new QLabel(this))
    , m_list(new QTreeWidget(this))
    , m_goBack(new QPushButton(tr("&Revenir à cette copie…"), this))
    , m_takeBack(new QPushButton(tr("Re&prendre des patients…"), this))
    , m_outcome(new QLabel(this))
{
    setWindowTitle(tr("Vesk Tandry – revenir à une copie"));
    build();
    connect(m_list, &QTreeWidget::itemSelectionChanged, this, &RestoreWindow::updateButtons);
    connect(m_goBack, &QPushButton::clicked, this, &RestoreWindow::askAndGoBack);
    connect(m_takeBack, &QPushButton::clicked, this, &RestoreWindow::choosePatients);
    connect(&m_timer, &QTimer::timeout, this, &RestoreWindow::checkForWidget);
    m_inUse = m_restorer.isInUse();
    fillList();
    checkForWidget();
    m_timer.start(widgetCheckIntervalMs);
}

void RestoreWindow::build()
{
    m_notice->setWordWrap(true);
    m_notice->setText(tr("Vesk Tandry est ouvert. Quittez-le (clic droit sur son en-tête, « Quitter ») : cette fenêtre "
                         "attend, et continue dès qu'il est fermé."));
    m_list->setAccessibleName(tr("Copies"));
    m_list->setHeaderLabels({tr("Copie du"), tr("Patients"), tr("Par rapport à aujourd'hui")});
    m_list->setRootIsDecorated(false);
    m_list->setAllColumnsShowFocus(true);
    m_list->setMinimumSize(listWidth, listHeight);
    m_list->header()->setSectionResizeMode(QHeaderView::ResizeToContents);
    m_outcome->setWordWrap(true);

    auto *introduction = new QLabel(
        tr("Choisissez une copie. L'état d'aujourd'hui est copié d'abord : vous pourrez y revenir de la même façon."),
        this);
    introduction->setWordWrap(true);
    auto *close = new QPushButton(tr("&Fermer"), this);
    connect(close, &QPushButton::clicked, this, &QWidget::close);

    auto *buttons = new QHBoxLayout;
    buttons->addWidget(m_goBack);
    buttons->addWidget(m_takeBack);
    buttons->addStretch();
    buttons->addWidget(close);
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(introduction);
    layout->addWidget(m_notice);
    layout->addWidget(m_list);
    layout->addWidget(m_outcome);
    layout->addLayout(buttons);
    m_list->setFocus();
}

void RestoreWindow::fillList()
{
    m_entries = m_restorer.entries();
    m_list->clear();
    const bool hasToday = m_restorer.today().error.isEmpty();
    for (const Restorer::Entry &entry : qAsConst(m_entries)) {
        auto *item = new QTreeWidgetItem(m_list);
        item->setText(0, dayOf(entry.copy));
        item->setText(1,
                      entry.patients.error.isEmpty() ? QString::number(entry.patients.rows.size()) : tr("illisible"));
        item->setText(2, hasToday && entry.patients.error.isEmpty() ? entry.difference.text() : QString());
        item->setTextAlignment(1, Qt::AlignRight);
    }
    if (m_entries.isEmpty()) {
        say(tr("Il n'y a pas encore de copie : la première se fait au prochain démarrage de Vesk Tandry."));
    } else {
        m_list->setCurrentItem(m_list->topLevelItem(0));
    }
    updateButtons();
}

void RestoreWindow::checkForWidget()
{
    const bool wasInUse = m_inUse;
    m_inUse = m_restorer.isInUse();
    m_notice->setVisible(m_inUse);
    if (m_inUse != wasInUse) {
        fillList(); // the widget may have changed patients or made a copy
    }
    updateButtons();
}

void RestoreWindow::updateButtons()
{
    const Restorer::Entry *entry = selected();
    const bool isUsable = !m_inUse && entry && entry->patients.error.isEmpty();
    m_goBack->setEnabled(isUsable);
    m_takeBack->setEnabled(isUsable && !entry->difference.missing.isEmpty());
}

void RestoreWindow::askAndGoBack()
{
    const Restorer::Entry *entry = selected();
    if (!entry) {
        return;
    }
    const Copy copy = entry->copy;
    QMessageBox question(QMessageBox::Question, windowTitle(), tr("Revenir à la copie du %1 ?").arg(dayOf(copy)),
                         QMessageBox::NoButton, this);
    question.setInformativeText(tr("Cette copie, vue d'aujourd'hui : %1. L'état d'aujourd'hui est copié d'abord.")
                                    .arg(entry->difference.text()));
    const auto *yes = question.addButton(tr("Revenir à cette copie"), QMessageBox::AcceptRole);
    question.setDefaultButton(question.addButton(tr("Annuler"), QMessageBox::RejectRole));
    question.exec();
    if (static_cast<const QAbstractButton *>(question.clickedButton()) == static_cast<const QAbstractButton *>(yes)) {
        report(m_restorer.goBackTo(copy),
               tr("C'est fait : les patients sont ceux de la copie du %1.").arg(dayOf(copy)));
    }
}

void RestoreWindow::choosePatients()
{
    const Restorer::Entry *entry = selected();
    if (!entry) {
        return;
    }
    PatientsDialog dialog(entry->difference.missing, dayOf(entry->copy), this);
    if (dialog.exec() == QDialog::Accepted) {
        const QVector<QVariantMap> chosen = dialog.chosen();
        report(m_restorer.takeBack(chosen),
               chosen.size() == 1 ? tr("C'est fait : 1 patient est revenu.")
                                  : tr("C'est fait : %1 patients sont revenus.").arg(chosen.size()));
    }
}

const Restorer::Entry *RestoreWindow::selected() const
{
    const int index = m_list->indexOfTopLevelItem(m_list->currentItem());
    return index >= 0 && index < m_entries.size() ? &m_entries.at(index) : nullptr;
}

/// Shows the text and makes screen readers read it aloud.
void RestoreWindow::say(const QString &text)
{
    m_outcome->setText(text);
    QAccessibleEvent event(m_outcome, QAccessible::Alert);
    QAccessible::updateAccessibility(&event);
}

void RestoreWindow::report(const QString &reason, const QString &done)
{
    fillList();
    say(reason.isEmpty() ? done : tr("Cela n'a pas pu se faire : %1.").arg(reason));
}
