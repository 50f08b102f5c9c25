#include "listdocument.h"
#include "practice.h"
#include "testhome.h"
#include "wholepatient.h"

#include <QtTest>

namespace {

/// The list popup's document, and the patients Adu (1), Béa (2), Cléo (3) and Dupont (4); Béa and Dupont are waiting.
struct Popup : PracticeAt
{
    Popup()
        : PracticeAt("2014-05-12 12:00:00")
    {
        file.run({"INSERT INTO Patients (name, created, notification_date) VALUES ('Adu', '2013-04-10', ''), "
                  "('Béa', '2013-04-10', '2014-05-12'), ('Cléo', '2013-04-10', '2050-05-12'), "
                  "('Dupont', '2013-04-10', '2014-01-01')"});
        document.call("open");
    }

    void perform(const QString &operation, const QJsonArray &values = {})
    {
        const QString thrown = document.call("perform", operation, QString(QJsonDocument(values).toJson())).toString();
        if (!thrown.isEmpty())
            QTest::qFail(qPrintable(thrown), __FILE__, __LINE__);
    }

    QStringList shown() const { return document.call("shown").toStringList(); }
    QStringList takeRaised() const { return document.call("takeRaised").toStringList(); }
    QJsonArray printed() const { return QJsonDocument::fromJson(document.call("printed").toString().toUtf8()).array(); }

    QString left() const
    {
        QStringList names;
        for (const QJsonValue &row : file.rows("SELECT name FROM Patients ORDER BY id"))
            names << row.toArray().at(0).toString();
        return names.join(", ");
    }

    ListDocument document{&engine, "ListDocument.qml"};
};

/// The warnings in the log while \a popup performs the operation.
QStringList warningsOf(Popup &popup, const QString &operation, const QJsonArray &values = {})
{
    static QStringList warnings;
    warnings.clear();
    const QtMessageHandler previous = qInstallMessageHandler(
        [](QtMsgType type, const QMessageLogContext &, const QString &text) {
            if (type != QtDebugMsg)
                warnings << text;
        });
    popup.perform(operation, values);
    qInstallMessageHandler(previous);
    return warnings;
}

} // namespace

class tst_ListLogic : public QObject
{
    Q_OBJECT

private slots:
    void init_reads_the_number_of_waiting_patients();
    void showing_replaces_the_rows();
    void showing_no_patients_empties_the_list();
    void ticked_header_ticks_every_newly_shown_row();
    void rows_are_whole_records_with_their_tick();
    void waiting_rows_with_nulls_are_shown();
    void waiting_rows_of_the_store_cause_no_warning();

    void rows_are_shown_before_they_can_be_printed();
    void printing_receives_all_shown_rows_without_ticks();
    void printing_receives_the_waiting_rows_unchanged();

    void one_row_is_ticked_and_unticked();
    void every_row_is_ticked_and_unticked();
    void ticked_patients_are_deleted_and_signalled_in_order();
    void deleting_without_ticks_deletes_nothing_and_still_signals();
    void deleting_does_not_reload_the_list();
    void deleting_removes_every_patient_ticked_by_the_header();
    void patients_that_could_not_be_deleted_are_not_signalled();
};

void tst_ListLogic::init_reads_the_number_of_waiting_patients()
{
    Popup popup;
    QCOMPARE(popup.document.object()->property("number").toInt(), -1);
    popup.perform("init");
    QCOMPARE(popup.document.object()->property("number").toInt(), 2);
    popup.file.run({"DELETE FROM Patients"});
    popup.perform("init");
    QCOMPARE(popup.document.object()->property("number").toInt(), 0);
}

void tst_ListLogic::showing_replaces_the_rows()
{
    Popup popup;
    popup.perform("showAll");
    popup.perform("showAll");
    QCOMPARE(popup.shown().count(), 4);
    popup.perform("showWaiting");
    popup.perform("showWaiting");
    QCOMPARE(popup.shown(), (QStringList{"Béa", "Dupont"}));
}

void tst_ListLogic::showing_no_patients_empties_the_list()
{
    Popup popup;
    popup.perform("showAll");
    popup.file.run({"DELETE FROM Patients"});
    popup.perform("showAll");
    QCOMPARE(popup.shown(), QStringList());
    QCOMPARE(popup.printed(), QJsonArray());
    popup.perform("showWaiting");
    QCOMPARE(popup.shown(), QStringList());
}

void tst_ListLogic::ticked_header_ticks_every_newly_shown_row()
{
    Popup popup;
    popup.document.call("tickHeader", true);
    popup.perform("showAll");
    QCOMPARE(popup.shown(), (QStringList{"Adu, ticked", "Béa, ticked", "Cléo, ticked", "Dupont, ticked"}));
    popup.perform("showWaiting");
    QCOMPARE(popup.shown(), (QStringList{"Béa, ticked", "Dupont, ticked"}));
    popup.document.call("tickHeader", false);
    popup.perform("showWaiting");
    QCOMPARE(popup.shown(), (QStringList{"Béa", "Dupont"}));
}

void tst_ListLogic::rows_are_whole_records_with_their_tick()
{
    Popup popup;
    popup.file.run({"DELETE FROM Patients", insertWholePatient("2014-05-12")});
    popup.perform("showAll");
    QJsonObject row = popup.document.row(0);
    row.remove("objectName");
    QJsonObject expected = wholeRecord("2014-05-12", 1);
    expected.insert("checked", false);
    QCOMPARE(row, expected);
}

void tst_ListLogic::waiting_rows_with_nulls_are_shown()
{
    Popup popup;
    popup.file.run({"INSERT INTO Patients VALUES (7, 0, 'Adam', NULL, NULL, NULL, NULL, NULL, NULL, NULL, NULL, NULL, "
                    "NULL, NULL, NULL, '2014-05-12')"});
    popup.perform("showWaiting");
    QCOMPARE(popup.shown(), (QStringList{"Adam", "Béa", "Dupont"}));
    popup.perform("checkIt", {0, true});
    popup.perform("deleteChecked");
    QCOMPARE(popup.left(), QString("Adu, Béa, Cléo, Dupont"));
}

void tst_ListLogic::waiting_rows_of_the_store_cause_no_warning()
{
    Popup popup;
    popup.store.insert({{"name", "Adam"}, {"created", "2014-05-12"}});
    // The model logs a warning for every null.
    QCOMPARE(warningsOf(popup, "showWaiting"), QStringList());
    QCOMPARE(popup.shown(), (QStringList{"Adam", "Béa", "Dupont"}));
}

void tst_ListLogic::rows_are_shown_before_they_can_be_printed()
{
    Popup popup;
    popup.perform("showAll");
    QCOMPARE(popup.document.object()->property("shownBeforePrintable").toInt(), 4);
}

void tst_ListLogic::printing_receives_all_shown_rows_without_ticks()
{
    Popup popup;
    popup.document.call("tickHeader", true);
    popup.perform("showAll");
    popup.perform("checkIt", {1, false});
    QCOMPARE(listed(popup.printed()), QString("Adu, Béa, Cléo, Dupont"));
    QCOMPARE(listed(popup.printed(), "checked"), QString("false, false, false, false"));
    QCOMPARE(listed(popup.printed(), "waiting"), QString("0, 1, 0, 1"));
}

void tst_ListLogic::printing_receives_the_waiting_rows_unchanged()
{
    Popup popup;
    popup.file.run({"UPDATE Patients SET phone = NULL WHERE name = 'Béa'"});
    popup.perform("showAll");
    popup.perform("showWaiting");
    popup.perform("checkAll", {true});
    QCOMPARE(listed(popup.printed()), QString("Béa, Dupont"));
    QCOMPARE(listed(popup.printed(), "checked"), QString("false, false"));
    QCOMPARE(popup.printed().at(0).toObject()["phone"], QJsonValue(QJsonValue::Null));
    QVERIFY(!popup.printed().at(0).toObject().contains("waiting"));
}

void tst_ListLogic::one_row_is_ticked_and_unticked()
{
    Popup popup;
    popup.perform("showAll");
    popup.perform("checkIt", {2, true});
    QCOMPARE(popup.shown(), (QStringList{"Adu", "Béa", "Cléo, ticked", "Dupont"}));
    popup.perform("checkIt", {2, false});
    QCOMPARE(popup.shown(), (QStringList{"Adu", "Béa", "Cléo", "Dupont"}));
}

void tst_ListLogic::every_row_is_ticked_and_unticked()
{
    Popup popup;
    popup.perform("showAll");
    popup.perform("checkIt", {0, true});
    // The model logs a warning for a missing row.
    QCOMPARE(warningsOf(popup, "checkAll", {true}), QStringList());
    QCOMPARE(popup.shown(), (QStringList{"Adu, ticked", "Béa, ticked", "Cléo, ticked", "Dupont, ticked"}));
    popup.perform("checkAll", {false});
    QCOMPARE(popup.shown(), (QStringList{"Adu", "Béa", "Cléo", "Dupont"}));
}

void tst_ListLogic::ticked_patients_are_deleted_and_signalled_in_order()
{
    Popup popup;
    // The model's order differs from the order of the ids.
    popup.file.run({"UPDATE Patients SET name = 'Zoé' WHERE id = 1"});
    popup.perform("showAll");
    popup.perform("checkIt", {3, true});
    popup.perform("checkIt", {1, true});
    popup.perform("deleteChecked");
    QCOMPARE(popup.left(), QString("Béa, Dupont"));
    QCOMPARE(popup.takeRaised(), (QStringList{"needRefresh, 2 left", "removedPatients [3,1]"}));
}

void tst_ListLogic::deleting_without_ticks_deletes_nothing_and_still_signals()
{
    Popup popup;
    popup.perform("showAll");
    popup.perform("deleteChecked");
    QCOMPARE(popup.left(), QString("Adu, Béa, Cléo, Dupont"));
    QCOMPARE(popup.takeRaised(), (QStringList{"needRefresh, 4 left", "removedPatients []"}));
}

void tst_ListLogic::deleting_does_not_reload_the_list()
{
    Popup popup;
    popup.perform("showWaiting");
    popup.perform("checkIt", {0, true});
    popup.perform("deleteChecked");
    QCOMPARE(popup.shown(), (QStringList{"Béa, ticked", "Dupont"}));
}

void tst_ListLogic::deleting_removes_every_patient_ticked_by_the_header()
{
    Popup popup;
    popup.document.call("tickHeader", true);
    popup.perform("showWaiting");
    popup.perform("deleteChecked");
    QCOMPARE(popup.left(), QString("Adu, Cléo"));
    QCOMPARE(popup.takeRaised(), (QStringList{"needRefresh, 2 left", "removedPatients [2,4]"}));
}

void tst_ListLogic::patients_that_could_not_be_deleted_are_not_signalled()
{
    Popup popup;
    popup.perform("showAll");
    popup.perform("checkAll", {true});
    popup.file.run({"CREATE TRIGGER Refusal BEFORE DELETE ON Patients WHEN old.id = 3 "
                    "BEGIN SELECT RAISE(FAIL, 'refused'); END"});
    QVERIFY(popup.document.call("perform", "deleteChecked", "[]").toString().contains("refused"));
    QCOMPARE(popup.left(), QString("Adu, Béa, Cléo, Dupont"));
    QCOMPARE(popup.takeRaised(), QStringList());
}

int main(int argc, char **argv)
{
    const TestHome home;
    QCoreApplication application(argc, argv);
    tst_ListLogic test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_ListLogic.moc"
