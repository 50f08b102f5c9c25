// Saves one answer through the store and commits it; compared with the UPDATE statement alone.
#include "measurement.h"
#include "rawstore.h"
#include "windows.h"

#include <QQmlEngine>
#include <QQuickItem>
#include <QQuickView>
#include <QSqlDatabase>
#include <QSqlQuery>

namespace {

QVariantMap answerData(int id, int variation)
{
    const QString day = QStringLiteral("2014-05-%1").arg(1 + variation % 28, 2, 10, QLatin1Char('0'));
    return {
        {QStringLiteral("id"), id},
        {QStringLiteral("name"), QStringLiteral("DUPONT Alice %1").arg(variation)},
        {QStringLiteral("genderMale"), false},
        {QStringLiteral("phone"), QStringLiteral("06 00 00 00 00")},
        {QStringLiteral("created"), day},
        {QStringLiteral("test"), variation % 2 == 0},
        {QStringLiteral("test_date"), day},
        {QStringLiteral("last"), QStringLiteral("test")},
    };
}

/// Both sides must use the same journal and sync modes.
void compareSafety(RawStore &raw)
{
    QSqlQuery query(QSqlDatabase::database(QSqlDatabase::connectionNames().value(0)));
    for (const char *name : {"journal_mode", "synchronous", "fullfsync"}) {
        if (!query.exec(QStringLiteral("PRAGMA ") + QLatin1String(name)) || !query.next()
            || query.value(0).toByteArray() != raw.pragma(name)) {
            qFatal("The program and the raw statement differ in %s", name);
        }
    }
}

} // namespace

int main(int argc, char *argv[])
{
    const Measurement measurement(argc, argv);
    QQuickView *view = createView(QStringLiteral("qrc:/benchmarks/Store.qml"));
    QObject *root = view->rootObject();
    QMetaObject::invokeMethod(root, "open");
    RawStore raw(*view->engine(), measurement.patients);
    compareSafety(raw);

    constexpr int answersAPair = 20;
    const auto eachOf = [&](int pair, const auto &answer) {
        return elapsedMs([&] {
                   for (int i = 0; i < answersAPair; ++i) {
                       const int variation = pair * answersAPair + i;
                       answer(1 + variation * 37 % measurement.patients, variation);
                   }
               })
            / answersAPair;
    };
    measurement.compare(
        "answer",
        [&](int pair) {
            return eachOf(pair, [&](int id, int variation) {
                QMetaObject::invokeMethod(root, "answer", Q_ARG(QVariant, QVariant(answerData(id, 2 * variation + 1))));
                if (!root->property("done").toBool()) {
                    qFatal("The answer was not stored");
                }
            });
        },
        [&](int pair) { return eachOf(pair, [&](int id, int variation) { raw.update(id, 2 * variation); }); });
    delete view;
}
