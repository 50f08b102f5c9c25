#pragma once

#include <QDialog>
#include <QVariantMap>
#include <QVector>

class QPushButton;
class QTreeWidget;

/// Lets the user tick patients of a copy that are no longer in the database.
class PatientsDialog : public QDialog
{
    Q_OBJECT
    Q_DISABLE_COPY(PatientsDialog)

public:
    /// \a day: of which copy, as the user reads it.
    PatientsDialog(const QVector<QVariantMap> &patients, const QString &day, QWidget *parent);

    /// The ticked ones.
    QVector<QVariantMap> chosen() const;

private:
    void fill();

    const QVector<QVariantMap> m_patients;
    QTreeWidget *m_list;
    QPushButton *m_accept;
};
