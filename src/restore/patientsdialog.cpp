#include "patientsdialog.h"

#include <QDate>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QTreeWidget>
#include <QVBoxLayout>

namespace {
constexpr int listWidth = 520;
constexpr int listHeight = 260;
} // namespace

PatientsDialog::PatientsDialog(const QVector<QVariantMap> &patients, const QString &day, QWidget *parent)
    : QDialog(parent)
    , m_patients(patients)
    , m_list(new QTreeWidget(this))
    , m_accept(new QPushButton(tr("&Remettre les patients cochés"), this))
{
    setWindowTitle(tr("Reprendre des patients"));
    auto *explanation = new QLabel(
        tr("Ces patients sont dans la copie du %1 et ne sont plus dans la base. Cochez ceux qui doivent revenir, avec "
           "leurs dates et leurs réponses.")
            .arg(day),
        this);
    explanation->setWordWrap(true);
    m_list->setAccessibleName(tr("Patients de la copie"));
    m_list->setHeaderLabels({tr("Nom"), tr("Téléphone"), tr("Premier rendez-vous")});
    m_list->setRootIsDecorated(false);
    m_list->setMinimumSize(listWidth, listHeight);
    m_list->header()->setSectionResizeMode(QHeaderView::ResizeToContents);
    fill();

    auto *cancel = new QPushButton(tr("&Annuler"), this);
    cancel->setDefault(true);
    connect(m_list, &QTreeWidget::itemChanged, this, [this] { m_accept->setEnabled(!chosen().isEmpty()); });
    connect(m_accept, &QPushButton::clicked, this, &QDialog::accept);
    connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
    m_accept->setEnabled(false);

    auto *buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(m_accept);
    buttons->addWidget(cancel);
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(explanation);
    layout->addWidget(m_list);
    layout->addLayout(buttons);
    m_list->setFocus();
}

QVector<QVariantMap> PatientsDialog::chosen() const
{
    QVector<QVariantMap> chosen;
    for (int row = 0; row < m_patients.size(); ++row) {
        if (m_list->topLevelItem(row)->checkState(0) == Qt::Checked) {
            chosen.append(m_patients.at(row));
        }
    }
    return chosen;
}

void PatientsDialog::fill()
{
    for (const QVariantMap &patient : m_patients) {
        const QDate created = QDate::fromString(patient.value(QStringLiteral("created")).toString(), Qt::ISODate);
        auto *item = new QTreeWidgetItem(m_list);
        item->setText(0, patient.value(QStringLiteral("name")).toString());
        item->setText(1, patient.value(QStringLiteral("phone")).toString());
        item->setText(2, created.toString(QStringLiteral("dd/MM/yyyy")));
        item->setCheckState(0, Qt::Unchecked);
    }
    if (!m_patients.isEmpty()) {
        m_list->setCurrentItem(m_list->topLevelItem(0));
    }
}
