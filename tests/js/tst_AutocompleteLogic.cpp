#include "listdocument.h"
#include "practice.h"
#include "testhome.h"
#include "wholepatient.h"

#include <QtTest>

namespace {

/// A practice with these patients and the search bar's document.
struct Search : Practice
{
    explicit Search(const QStringList &names = {"Adu", "DURAND", "Dupont", "Martin"})
    {
        for (const QString &name : names)
            store.insertNamed(name);
        document.call("open");
    }

    QStringList filter(const QString &input)
    {
        document.call("filter", input);
        return document.call("names").toStringList();
    }

    ListDocument document{&engine, "AutocompleteDocument.qml"};
};

} // namespace

class tst_AutocompleteLogic : public QObject
{
    Q_OBJECT

private slots:
    void names_that_start_with_the_text_come_before_names_that_contain_it();
    void every_search_replaces_the_results();
    void empty_input_empties_the_results_without_a_query();
    void search_before_the_store_is_open_only_empties_the_results();
    void rows_are_whole_records();
};

void tst_AutocompleteLogic::names_that_start_with_the_text_come_before_names_that_contain_it()
{
    QCOMPARE(Search().filter("du"), (QStringList{"Dupont", "DURAND", "Adu"}));
}

void tst_AutocompleteLogic::every_search_replaces_the_results()
{
    Search search;
    QCOMPARE(search.filter("m"), QStringList{"Martin"});
    QCOMPARE(search.filter("a"), (QStringList{"Adu", "DURAND", "Martin"}));
    QCOMPARE(search.filter("nobody"), QStringList());
}

void tst_AutocompleteLogic::empty_input_empties_the_results_without_a_query()
{
    Search search;
    search.filter("du");
    // A query would now fail with a warning.
    search.file.run({"ALTER TABLE Patients RENAME TO Elsewhere"});
    QStringList warnings;
    QObject::connect(&search.engine, &QQmlEngine::warnings,
                     [&warnings](const QList<QQmlError> &errors) { warnings << errors.first().toString(); });
    QCOMPARE(search.filter(""), QStringList());
    QCOMPARE(warnings, QStringList());
    search.filter("du");
    QCOMPARE(warnings.count(), 1);
}

void tst_AutocompleteLogic::search_before_the_store_is_open_only_empties_the_results()
{
    Practice practice;
    practice.store.insertNamed("Dupont");
    const ListDocument document(&practice.engine, "AutocompleteDocument.qml");
    document.call("filter", "du");
    QCOMPARE(document.call("names").toStringList(), QStringList());
}

void tst_AutocompleteLogic::rows_are_whole_records()
{
    Search search(QStringList{});
    search.file.run({insertWholePatient("2050-05-12")});
    search.filter("du");
    QJsonObject row = search.document.row(0);
    row.remove("objectName");
    QCOMPARE(row, wholeRecord("2050-05-12", 0));
}

int main(int argc, char **argv)
{
    const TestHome home;
    QCoreApplication application(argc, argv);
    tst_AutocompleteLogic test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_AutocompleteLogic.moc"
