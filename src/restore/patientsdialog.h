#pragma once

#include <QDialog>
#include <QVariantMap>
#include <QVector>

class QPushButton;
class QTreeWidget;

/// Lists the patients of a copy that the database lacks and lets the user tick those to restore.
class PatientsDialog : public QDialog
{
    Q_OBJECT
    Q_DISABLE_COPY(PatientsDialog)

public:
    /// `day` is the copy's day as shown to the user.
    PatientsDialog(const QVector<QVariantMap> &patients, const QString &day, QWidget *parent);

    /// The ticked patients.
    QVector<QVariantMap> chosen() const;

private:
    void fill();

    const QVector<QVariantMap> m_patients;
    QTreeWidget *m_list;
    QPushButton *m_accept;
};
