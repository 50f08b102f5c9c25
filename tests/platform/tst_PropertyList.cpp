#include "propertylist.h"

#include "testhome.h"

#include <QBuffer>
#include <QDateTime>
#include <QtTest>

/// The reader and the writer alone. tst_Autorun proves that other programs can read the written lists, and the reverse.
class tst_PropertyList : public QObject
{
    Q_OBJECT

private slots:
    void each_type_is_read_data();
    void each_type_is_read();
    void what_is_not_a_property_list_is_refused_data();
    void what_is_not_a_property_list_is_refused();
    void a_refused_list_does_not_change_the_values();
    void the_document_is_written_in_key_order();
    void a_type_unknown_to_property_lists_is_not_written();

private:
    static bool read(const QByteArray &document, QSettings::SettingsMap &values);
    static QByteArray around(const QByteArray &value);
};

bool tst_PropertyList::read(const QByteArray &document, QSettings::SettingsMap &values)
{
    QByteArray content = document;
    QBuffer buffer(&content);
    buffer.open(QIODevice::ReadOnly);
    return PropertyList::read(buffer, values);
}

QByteArray tst_PropertyList::around(const QByteArray &value)
{
    return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
           "<!DOCTYPE plist PUBLIC \"-//Apple//DTD PLIST 1.0//EN\" "
           "\"http://www.apple.com/DTDs/PropertyList-1.0.dtd\">\n"
           "<plist version=\"1.0\"><dict><key>K</key>"
        + value + "</dict></plist>\n";
}

void tst_PropertyList::each_type_is_read_data()
{
    QTest::addColumn<QByteArray>("value");
    QTest::addColumn<QVariant>("expected");
    const auto row = [](const char *name, const QByteArray &value, const QVariant &expected) {
        QTest::newRow(name) << value << expected;
    };
    row("string", "<string>a &amp; b é</string>", QString::fromUtf8("a & b é"));
    row("string with a comment", "<string>a<!-- no -->b</string>", QString("ab"));
    row("empty string", "<string/>", QString(""));
    row("true", "<true/>", true);
    row("false", "<false></false>", false);
    row("integer", "<integer> -12 </integer>", -12LL);
    row("hexadecimal", "<integer>0x1F</integer>", 31LL);
    row("largest integer", "<integer>18446744073709551615</integer>", 18446744073709551615ULL);
    row("real", "<real>0.25</real>", 0.25);
    row("date", "<date>2014-05-31T10:00:01Z</date>", QDateTime(QDate(2014, 5, 31), QTime(10, 0, 1), Qt::UTC));
    row("data", "<data>\n\tAP8h\n\t</data>", QByteArray("\0\xff!", 3));
    row("strings", "<array><string>a</string><string/></array>", QStringList({"a", ""}));
    row("mixed array", "<array><string>a</string><true/></array>", QVariantList({"a", true}));
    row("empty array", "<array/>", QVariantList());
    row("dictionary", "<dict><key>a</key><dict><key>b</key><true/></dict></dict>",
        QVariantMap{{"a", QVariantMap{{"b", true}}}});
}

void tst_PropertyList::each_type_is_read()
{
    QFETCH(QByteArray, value);
    QFETCH(QVariant, expected);
    QSettings::SettingsMap values;
    QVERIFY(read(around(value), values));
    QCOMPARE(values.keys(), QStringList{"K"});
    QCOMPARE(values.value("K").type(), expected.type());
    QCOMPARE(values.value("K"), expected);
    QVERIFY(!values.value("K").isNull());
}

void tst_PropertyList::what_is_not_a_property_list_is_refused_data()
{
    QTest::addColumn<QByteArray>("document");
    const auto row = [](const char *name, const QByteArray &document) { QTest::newRow(name) << document; };
    row("nothing", "");
    row("binary list", "bplist00\xd1\x01\x02");
    row("other root", "<dict><key>K</key><true/></dict>");
    row("empty root", "<plist/>");
    row("two values", "<plist><dict/><dict/></plist>");
    row("two roots", "<plist><dict/></plist><plist><dict/></plist>");
    row("array at the top", "<plist><array/></plist>");
    row("key without a value", "<plist><dict><key>K</key></dict></plist>");
    row("value without a key", "<plist><dict><true/></dict></plist>");
    row("key of keys", "<plist><dict><key>K</key><key>L</key></dict></plist>");
    row("no such type", around("<null/>"));
    row("integer of letters", around("<integer>many</integer>"));
    row("integer too large", around("<integer>18446744073709551616</integer>"));
    row("real of letters", around("<real>much</real>"));
    row("no such date", around("<date>2014-02-30T10:00:00Z</date>"));
    row("tag inside a text", around("<string>a<true/></string>"));
    row("not closed", around("<string>a"));
    row("no such entity", "<plist><dict><key>K</key><string>&name;</string></dict></plist>");
    row("nested without end", around(QByteArray("<array>").repeated(200000)));
    row("nested very deep", around(QByteArray("<array>").repeated(5000) + QByteArray("</array>").repeated(5000)));
    row("entities that grow",
        "<!DOCTYPE plist [<!ENTITY a \"aaaaaaaaaa\"><!ENTITY b \"&a;&a;&a;&a;&a;&a;&a;&a;\">"
        "<!ENTITY c \"&b;&b;&b;&b;&b;&b;&b;&b;\"><!ENTITY d \"&c;&c;&c;&c;&c;&c;&c;&c;\">]>"
        "<plist><dict><key>K</key><string>&d;&d;</string></dict></plist>");
}

void tst_PropertyList::what_is_not_a_property_list_is_refused()
{
    QFETCH(QByteArray, document);
    QSettings::SettingsMap values;
    QVERIFY(!read(document, values));
}

void tst_PropertyList::a_refused_list_does_not_change_the_values()
{
    QSettings::SettingsMap values{{"Before", 1}};
    QVERIFY(!read("<plist><dict><key>K</key><true/></dict>", values));
    QCOMPARE(values, (QSettings::SettingsMap{{"Before", 1}}));
}

void tst_PropertyList::the_document_is_written_in_key_order()
{
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    QVERIFY(PropertyList::write(buffer, {{"List", QStringList{"x", "y"}}, {"Flag", true}, {"Text", "a<b"}}));
    QCOMPARE(
        buffer.data(),
        QByteArray(
            "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
            "<!DOCTYPE plist PUBLIC \"-//Apple//DTD PLIST 1.0//EN\" \"http://www.apple.com/DTDs/PropertyList-1.0.dtd\">\n"
            "<plist version=\"1.0\">\n"
            "\t<dict>\n"
            "\t\t<key>Flag</key>\n"
            "\t\t<true/>\n"
            "\t\t<key>List</key>\n"
            "\t\t<array>\n"
            "\t\t\t<string>x</string>\n"
            "\t\t\t<string>y</string>\n"
            "\t\t</array>\n"
            "\t\t<key>Text</key>\n"
            "\t\t<string>a&lt;b</string>\n"
            "\t</dict>\n"
            "</plist>\n"));
}

void tst_PropertyList::a_type_unknown_to_property_lists_is_not_written()
{
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    QVERIFY(!PropertyList::write(buffer, {{"K", QVariant()}}));
    QVERIFY(!PropertyList::write(buffer, {{"K", QVariantList{QPoint(1, 2)}}}));
    QVERIFY(!PropertyList::write(buffer, {{"K", QVariantMap{{"L", QPoint(1, 2)}}}}));
}

int main(int argc, char **argv)
{
    const TestHome home;
    QCoreApplication application(argc, argv);
    tst_PropertyList test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_PropertyList.moc"
