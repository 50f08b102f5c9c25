#pragma once

#include "restorer.h"

#include <QTimer>
#include <QWidget>

class QLabel;
class QPushButton;
class QTreeWidget;

/// Lists the copies, goes back to one, or takes single patients out of one.
class RestoreWindow : public QWidget
{
    Q_OBJECT
    Q_DISABLE_COPY(RestoreWindow)

public:
    explicit RestoreWindow(const StoreFiles &store);

private slots:
    void checkForWidget();
    void updateButtons();
    void askAndGoBack();
    void choosePatients();

private:
    void build();
    void fillList();
    const Restorer::Entry *selected() const;
    void say(const QString &text);
    void report(const QString &reason, const QString &done);

    Restorer m_restorer;
    QVector<Restorer::Entry> m_entries;
    QTimer m_timer;
    bool m_inUse = false;
    QLabel *m_notice;
    QTreeWidget *m_list;
    QPushButton *m_goBack;
    QPushButton *m_takeBack;
    QLabel *m_outcome;
};
