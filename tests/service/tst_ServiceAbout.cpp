#include "modal.h"
#include "runningservice.h"
#include "settingsfile.h"
#include "testmain.h"

#include <QMessageBox>
#include <QPushButton>
#include <QScreen>
#include <QUuid>

/// The About box.
class ServiceAbout : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void box_names_version_and_identifier_data();
    void box_names_version_and_identifier();
    void box_shows_the_tray_picture();
    void box_belongs_to_the_hidden_widget();
    void box_opens_in_the_middle_of_the_screen();
    void box_counts_nothing();
};

void ServiceAbout::init()
{
    SettingsFile::forgetEverything();
}

void ServiceAbout::box_names_version_and_identifier_data()
{
    QTest::addColumn<QVariant>("identifier");
    QTest::addColumn<QString>("shown");

    QTest::newRow("a uuid") << QVariant(QUuid("{01234567-89ab-4def-8123-456789abcdef}")) << "01234567";
    QTest::newRow("text of a uuid") << QVariant("{89abcdef-89ab-4def-8123-456789abcdef}") << "89abcdef";
    QTest::newRow("upper case") << QVariant("{89ABCDEF-89AB-4DEF-8123-456789ABCDEF}") << "89ABCDEF";
    QTest::newRow("no hyphens") << QVariant("{practice}") << "practice";
    QTest::newRow("braces everywhere") << QVariant("}pra{{ct}ice{-x") << "practice";
    QTest::newRow("hyphen first") << QVariant("-abc-def") << "";
    QTest::newRow("empty") << QVariant("") << "";
    QTest::newRow("a percent sign") << QVariant("%1%2-x") << "%1%2";
}

void ServiceAbout::box_names_version_and_identifier()
{
    QFETCH(QVariant, identifier);
    QFETCH(QString, shown);
    RunningService running;
    SettingsFile::setValue("Uuid", identifier);

    QVERIFY(withModal<QMessageBox>([&] { running.call("openAbout"); },
                                   [&](QMessageBox &box) {
                                       QCOMPARE(box.windowTitle(), QString("Vesk Tandry"));
                                       QCOMPARE(box.text(),
                                                "<h3>Vesk Tandry</h3><p>Version " TANDRY_VERSION " - <em>" + shown
                                                    + "</em></p><p>Olmeric, 2026</p>");
                                       QCOMPARE(box.informativeText(), QString());
                                       QCOMPARE(box.buttons().size(), 1);
                                       QCOMPARE(box.standardButton(box.buttons().first()), QMessageBox::Ok);
                                       QVERIFY(box.textFormat() == Qt::AutoText || box.textFormat() == Qt::RichText);
                                   }));
}

void ServiceAbout::box_shows_the_tray_picture()
{
    const QImage tray = QImage(":/images/tray.png")
                            .scaled(64, 64, Qt::IgnoreAspectRatio, Qt::SmoothTransformation)
                            .convertToFormat(QImage::Format_ARGB32_Premultiplied);
    RunningService running;

    QVERIFY(withModal<QMessageBox>(
        [&] { running.call("openAbout"); },
        [&](QMessageBox &box) {
            QCOMPARE(box.iconPixmap().toImage().convertToFormat(QImage::Format_ARGB32_Premultiplied), tray);
        }));
}

void ServiceAbout::box_belongs_to_the_hidden_widget()
{
    RunningService running;
    const QWidget *hidden = running.service->dialogParent;

    QVERIFY(withModal<QMessageBox>([&] { running.call("openAbout"); },
                                   [&](QMessageBox &box) {
                                       QCOMPARE(static_cast<const QWidget *>(box.parentWidget()), hidden);
                                       QVERIFY(!hidden->isVisible());
                                   }));
    QCOMPARE(hidden->parentWidget(), nullptr);
    QCOMPARE(hidden->windowIcon().pixmap(128, 128).toImage().convertToFormat(QImage::Format_ARGB32),
             QImage(":/images/tray.png").convertToFormat(QImage::Format_ARGB32));
}

void ServiceAbout::box_opens_in_the_middle_of_the_screen()
{
    RunningService running;
    const QPoint middle = QGuiApplication::primaryScreen()->availableGeometry().center();

    QVERIFY(withModal<QMessageBox>([&] { running.call("openAbout"); },
                                   [&](QMessageBox &box) {
                                       const QPoint off = box.geometry().center() - middle;
                                       // Half of a frame, whose size is guessed before there is one.
                                       QVERIFY2(off.manhattanLength() <= 40,
                                                qPrintable(QString("%1 %2 off").arg(off.x()).arg(off.y())));
                                   }));
}

void ServiceAbout::box_counts_nothing()
{
    RunningService running;
    const QStringList before = SettingsFile::keys();
    QVERIFY(withModal<QMessageBox>([&] { running.call("openAbout"); }, [](QMessageBox &) {}));
    QCOMPARE(SettingsFile::keys(), before);
}

SERVICE_TEST_MAIN(ServiceAbout)

#include "tst_ServiceAbout.moc"
