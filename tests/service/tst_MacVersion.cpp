#include "macversion.h"

#include <QtTest>

/// Tested without the service, which gets such a code only on a Mac.
class tst_MacVersion : public QObject
{
    Q_OBJECT

private slots:
    void code_has_its_name_data();
    void code_has_its_name();
};

void tst_MacVersion::code_has_its_name_data()
{
    QTest::addColumn<int>("code");
    QTest::addColumn<QString>("name");
    QTest::newRow("before the first") << 7 << "Unknown version";
    QTest::newRow("10.6") << 8 << "OS X 10.6 Snow Leopard";
    QTest::newRow("10.7") << 9 << "OS X 10.7 Lion";
    QTest::newRow("10.8") << 10 << "OS X 10.8 Mountain Lion";
    QTest::newRow("10.9") << 11 << "OS X 10.9 Mavericks";
    QTest::newRow("after the last") << 12 << "Unknown version";
    QTest::newRow("no Mac") << 65535 << "Unknown version";
}

void tst_MacVersion::code_has_its_name()
{
    QFETCH(int, code);
    QTEST(readableMacVersion(code), "name");
}

QTEST_APPLESS_MAIN(tst_MacVersion)

#include "tst_MacVersion.moc"
