#include "patientsdialog.h"
#include "restorewindow.h"
#include "support/practicefile.h"

#include <QLabel>
#include <QMessageBox>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTreeWidget>
#include <QtTest>

using namespace practice;

namespace {

template<class Widget>
Widget *child(const QWidget &window, const QString &text)
{
    for (Widget *widget : window.findChildren<Widget *>()) {
        if (widget->property("text").toString().remove('&').startsWith(text))
            return widget;
    }
    qFatal("There is no \"%s\"", qPrintable(text));
}

} // namespace

class tst_RestoreWindow : public QObject
{
    Q_OBJECT

private slots:
    void copies_are_listed_with_day_patients_and_difference();
    void buttons_are_disabled_while_the_widget_runs_and_enabled_once_it_ends();
    void a_return_needs_confirmation_and_no_is_the_default_data();
    void a_return_needs_confirmation_and_no_is_the_default();
    void a_return_that_fails_shows_its_reason();
    void ticked_patients_are_restored();
    void tab_moves_from_the_list_through_the_buttons();

private:
    const QTemporaryDir m_place;
    const StoreFiles m_store{m_place.path()};
    const QString m_copy = m_store.copiesFolder() + "/2014-05-12";

private slots:
    void init()
    {
        QDir(m_place.path()).removeRecursively();
        write(m_store.folder(), {martin});
        write(m_copy, {martin, dupont});
    }
};

void tst_RestoreWindow::copies_are_listed_with_day_patients_and_difference()
{
    write(m_store.copiesFolder() + "/2014-05-13-before-upgrade", {martin});
    QFile broken(m_store.copiesFolder() + "/2014-05-14/" + StoreFiles::databaseName());
    QDir().mkpath(QFileInfo(broken).path());
    QVERIFY(broken.open(QIODevice::WriteOnly) && broken.write("not a database, but long enough to be read as one") > 0);
    broken.close();
    const RestoreWindow window(m_store);
    const auto *list = window.findChild<QTreeWidget *>();
    QStringList lines;
    for (int row = 0; row < list->topLevelItemCount(); ++row) {
        const auto *item = list->topLevelItem(row);
        lines << item->text(0) + " | " + item->text(1) + " | " + item->text(2);
    }
    QStringList titles;
    for (int column = 0; column < list->columnCount(); ++column)
        titles << list->headerItem()->text(column);
    QCOMPARE(titles, QStringList({"Copie du", "Patients", "Par rapport à aujourd'hui"}));
    QCOMPARE(lines,
             QStringList({"mercredi 14 mai 2014 | illisible | ",
                          "mardi 13 mai 2014, avant la mise à niveau | 1 | comme aujourd'hui",
                          "lundi 12 mai 2014 | 2 | 1 patient de plus"}));
    QVERIFY(!child<QPushButton>(window, "Revenir")->isEnabled()); // the unreadable one is selected
}

void tst_RestoreWindow::buttons_are_disabled_while_the_widget_runs_and_enabled_once_it_ends()
{
    StoreLock widget(m_store);
    QCOMPARE(widget.take(), StoreLock::Taken);
    RestoreWindow window(m_store);
    window.show();
    QVERIFY(child<QLabel>(window, "Vesk Tandry est ouvert")->isVisible());
    QVERIFY(!child<QPushButton>(window, "Revenir")->isEnabled());
    QVERIFY(!child<QPushButton>(window, "Reprendre")->isEnabled());
    widget.release();
    QTRY_VERIFY(child<QPushButton>(window, "Revenir")->isEnabled());
    QVERIFY(child<QPushButton>(window, "Reprendre")->isEnabled());
    QVERIFY(!child<QLabel>(window, "Vesk Tandry est ouvert")->isVisible());
}

void tst_RestoreWindow::a_return_needs_confirmation_and_no_is_the_default_data()
{
    QTest::addColumn<QString>("button");
    QTest::addColumn<int>("patients");
    QTest::newRow("no") << QString() << 1;
    QTest::newRow("yes") << "Revenir à cette copie" << 2;
}

void tst_RestoreWindow::a_return_needs_confirmation_and_no_is_the_default()
{
    QFETCH(QString, button);
    RestoreWindow window(m_store);
    window.show();
    QTimer::singleShot(0, this, [&button] {
        auto *question = qobject_cast<QMessageBox *>(QApplication::activeModalWidget());
        QCOMPARE(question->text(), QString("Revenir à la copie du lundi 12 mai 2014 ?"));
        if (button.isEmpty())
            QTest::keyClick(question->defaultButton(), Qt::Key_Return);
        else
            child<QPushButton>(*question, button)->click();
    });
    child<QPushButton>(window, "Revenir")->click();
    QTEST(PatientTable::read(m_store.folder()).rows.size(), "patients");
    if (!button.isEmpty())
        QVERIFY(child<QLabel>(window, "C'est fait : les patients sont ceux de la copie du lundi 12 mai 2014."));
}

void tst_RestoreWindow::a_return_that_fails_shows_its_reason()
{
    RestoreWindow window(m_store);
    window.show();
    StoreLock widget(m_store);
    QTimer::singleShot(0, this, [&widget] {
        widget.take(); // the widget is opened during the question
        child<QPushButton>(*QApplication::activeModalWidget(), "Revenir à cette copie")->click();
    });
    child<QPushButton>(window, "Revenir")->click();
    QVERIFY(child<QLabel>(window, "Cela n'a pas pu se faire : Vesk Tandry est ouvert."));
    QCOMPARE(PatientTable::read(m_store.folder()).rows.size(), 1);
}

void tst_RestoreWindow::ticked_patients_are_restored()
{
    RestoreWindow window(m_store);
    window.show();
    QTimer::singleShot(0, this, [] {
        auto *dialog = qobject_cast<PatientsDialog *>(QApplication::activeModalWidget());
        const auto closed = qScopeGuard([dialog] {
            if (dialog->isVisible()) // a check has failed
                dialog->reject();
        });
        auto *list = dialog->findChild<QTreeWidget *>();
        QVERIFY(!child<QPushButton>(*dialog, "Remettre")->isEnabled());
        QVERIFY(child<QPushButton>(*dialog, "Annuler")->isDefault());
        const QAbstractItemView *const view = list;
        QVERIFY(list->columnWidth(0) >= view->sizeHintForColumn(0));
        QVERIFY(child<QLabel>(*dialog, "Ces patients")->geometry().bottom() < list->y());
        QVERIFY(list->geometry().bottom() < child<QPushButton>(*dialog, "Annuler")->y());
        const QTreeWidgetItem *first = list->topLevelItem(0);
        QCOMPARE(QStringList({first->text(0), first->text(1), first->text(2)}),
                 QStringList({"DUPONT Marie", "0601020304", "10/04/2014"}));
        QTest::keyClick(list, Qt::Key_Space);
        child<QPushButton>(*dialog, "Remettre")->click();
    });
    child<QPushButton>(window, "Reprendre")->click();
    QCOMPARE(names(PatientTable::read(m_store.folder())), QStringList({"DUPONT Marie", "MARTIN Paul"}));
    QVERIFY(child<QLabel>(window, "C'est fait : 1 patient est revenu."));
}

void tst_RestoreWindow::tab_moves_from_the_list_through_the_buttons()
{
    RestoreWindow window(m_store);
    window.show();
    QVERIFY(QTest::qWaitForWindowActive(&window));
    QStringList order;
    for (int step = 0; step < 4; ++step) {
        QWidget *focused = window.focusWidget();
        order << QString(focused->accessibleName() + focused->property("text").toString()).remove('&');
        QTest::keyClick(focused, Qt::Key_Tab);
    }
    QCOMPARE(order, QStringList({"Copies", "Revenir à cette copie…", "Reprendre des patients…", "Fermer"}));
}

QTEST_MAIN(tst_RestoreWindow)

#include "tst_RestoreWindow.moc"
