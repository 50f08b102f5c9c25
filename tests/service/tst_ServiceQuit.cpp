#include "comparelines.h"
#include "modal.h"
#include "runningservice.h"
#include "settingsfile.h"
#include "testmain.h"

#include <QCheckBox>
#include <QFile>
#include <QMessageBox>
#include <QPushButton>
#include <QSignalSpy>

namespace {

const QString key = QStringLiteral("DontAskBeforeQuit");

/// The stored preference: "absent", "true" or "false".
QString stored()
{
    const QVariant value = SettingsFile::value(key);
    return value.isValid() ? value.toString() : QStringLiteral("absent");
}

/// Performs one action in the box, like a user.
void use(QMessageBox &box, const QString &action)
{
    if (action == "tick" || action == "untick") {
        QTest::mouseClick(box.checkBox(), Qt::LeftButton);
        QCOMPARE(box.checkBox()->isChecked(), action == "tick");
    } else if (action == "OK") {
        QTest::mouseClick(box.button(QMessageBox::Ok), Qt::LeftButton);
    } else if (action == "Cancel") {
        QTest::mouseClick(box.button(QMessageBox::Cancel), Qt::LeftButton);
    } else if (action == "Escape") {
        QTest::keyClick(&box, Qt::Key_Escape);
    } else if (action == "Return") {
        QTest::keyClick(box.focusWidget() ? box.focusWidget() : &box, Qt::Key_Return);
    } else if (action == "close") {
        box.close();
    } else {
        QFAIL(qPrintable(action));
    }
}

} // namespace

/// Quitting, and the two preferences.
class ServiceQuit : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void question_has_the_expected_text_buttons_and_default();
    void question_shows_the_tray_picture();
    void question_is_deleted_when_answered();
    void answer_decides_and_the_check_box_is_stored_at_once_data();
    void answer_decides_and_the_check_box_is_stored_at_once();
    void stored_preference_decides_whether_to_ask_data();
    void stored_preference_decides_whether_to_ask();
    void timers_tick_while_the_question_is_open();
    void end_of_the_session_quits_without_asking();
    void preference_is_stored_as_given_data();
    void preference_is_stored_as_given();
    void switching_launch_at_login_notifies_the_document_once_data();
    void switching_launch_at_login_notifies_the_document_once();
    void failed_write_of_the_list_is_not_shown();
};

void ServiceQuit::init()
{
    SettingsFile::forgetEverything();
}

void ServiceQuit::question_has_the_expected_text_buttons_and_default()
{
    RunningService running;
    QVERIFY(withModal<QMessageBox>([&] { running.call("closeIntent"); },
                                   [](QMessageBox &box) {
                                       QCOMPARE(box.windowTitle(), QString("Vesk Tandry"));
                                       QVERIFY(box.windowFlags().testFlag(Qt::WindowStaysOnTopHint));
                                       QVERIFY(!box.windowIcon().isNull()); // in its title bar and in the taskbar
                                       QCOMPARE(box.text(), QString("Fermeture de Tandry"));
                                       QCOMPARE(box.informativeText(),
                                                QString("Etes-vous sur de vouloir fermer le widget Tandry ?"));
                                       QVERIFY(box.checkBox());
                                       QCOMPARE(box.checkBox()->text(), QString("Ne plus me demander"));
                                       QVERIFY(!box.checkBox()->isChecked());
                                       QCOMPARE(box.standardButtons(), QMessageBox::Ok | QMessageBox::Cancel);
                                       QCOMPARE(box.buttons().size(), 2);
                                       QCOMPARE(box.button(QMessageBox::Cancel)->text(), QString("Annuler"));
                                       QCOMPARE(box.defaultButton(), box.button(QMessageBox::Cancel));
                                       QCOMPARE(box.parentWidget(), nullptr);
                                       QVERIFY(box.isModal());
                                   }));
}

void ServiceQuit::question_shows_the_tray_picture()
{
    const QImage tray = QImage(":/images/tray.png")
                            .scaled(64, 64, Qt::IgnoreAspectRatio, Qt::SmoothTransformation)
                            .convertToFormat(QImage::Format_ARGB32_Premultiplied);
    RunningService running;
    QVERIFY(withModal<QMessageBox>(
        [&] { running.call("closeIntent"); },
        [&](QMessageBox &box) {
            QCOMPARE(box.iconPixmap().toImage().convertToFormat(QImage::Format_ARGB32_Premultiplied), tray);
        }));
}

void ServiceQuit::question_is_deleted_when_answered()
{
    RunningService running;
    QPointer<QMessageBox> question;
    QPointer<QCheckBox> checkBox;
    QVERIFY(withModal<QMessageBox>([&] { running.call("closeIntent"); },
                                   [&](QMessageBox &box) {
                                       question = &box;
                                       checkBox = box.checkBox();
                                   }));
    QVERIFY(!question);
    QVERIFY(!checkBox);
}

void ServiceQuit::answer_decides_and_the_check_box_is_stored_at_once_data()
{
    QTest::addColumn<QStringList>("actions");
    QTest::addColumn<QStringList>("storedAfterEach");
    QTest::addColumn<int>("quits");

    const auto row = [](const QStringList &actions, const QStringList &storedAfterEach, int quits) {
        QTest::newRow(qPrintable(actions.join(", "))) << actions << storedAfterEach << quits;
    };
    row({"OK"}, {"absent"}, 1);
    row({"Cancel"}, {"absent"}, 0);
    row({"Escape"}, {"absent"}, 0);
    row({"Return"}, {"absent"}, 0);
    row({"close"}, {"absent"}, 0);
    row({"tick", "OK"}, {"true", "true"}, 1);
    row({"tick", "Cancel"}, {"true", "true"}, 0);
    row({"tick", "Escape"}, {"true", "true"}, 0);
    row({"tick", "close"}, {"true", "true"}, 0);
    row({"tick", "untick", "OK"}, {"true", "false", "false"}, 1);
    row({"tick", "untick", "Cancel"}, {"true", "false", "false"}, 0);
    row({"tick", "untick", "Escape"}, {"true", "false", "false"}, 0);
    row({"tick", "untick", "tick", "OK"}, {"true", "false", "true", "true"}, 1);
    row({"tick", "untick", "tick", "Escape"}, {"true", "false", "true", "true"}, 0);
}

void ServiceQuit::answer_decides_and_the_check_box_is_stored_at_once()
{
    QFETCH(QStringList, actions);
    QFETCH(QStringList, storedAfterEach);
    QFETCH(int, quits);
    RunningService running;
    QSignalSpy quit(running.service, SIGNAL(quit()));
    QStringList seen;

    QVERIFY(withModal<QMessageBox>([&] { running.call("closeIntent"); },
                                   [&](QMessageBox &box) {
                                       for (const QString &action : actions) {
                                           use(box, action);
                                           seen.append(stored());
                                       }
                                   }));

    COMPARE_LINES(seen, storedAfterEach);
    QCOMPARE(quit.size(), quits);

    // The next close asks unless the last stored value is true.
    const bool asks = withModal<QMessageBox>([&] { running.call("closeIntent"); }, [](QMessageBox &) {});
    QCOMPARE(asks, storedAfterEach.last() != "true");
    QCOMPARE(quit.size(), asks ? quits : quits + 1);
}

void ServiceQuit::stored_preference_decides_whether_to_ask_data()
{
    QTest::addColumn<QByteArray>("line");
    QTest::addColumn<bool>("asks");

    QTest::newRow("absent") << QByteArray() << true;
    QTest::newRow("false") << QByteArray("DontAskBeforeQuit=false\n") << true;
    QTest::newRow("true") << QByteArray("DontAskBeforeQuit=true\n") << false;
    QTest::newRow("0") << QByteArray("DontAskBeforeQuit=0\n") << true;
    QTest::newRow("1") << QByteArray("DontAskBeforeQuit=1\n") << false;
    QTest::newRow("empty") << QByteArray("DontAskBeforeQuit=\n") << true;
    QTest::newRow("unreadable") << QByteArray("DontAskBeforeQuit=@Variant(\\0)\n") << true;
}

void ServiceQuit::stored_preference_decides_whether_to_ask()
{
    QFETCH(QByteArray, line);
    QFETCH(bool, asks);
    SettingsFile::replace(SettingsFile::own(), "[General]\n" + line);
    RunningService running;
    QSignalSpy quit(running.service, SIGNAL(quit()));

    QCOMPARE(withModal<QMessageBox>([&] { running.call("closeIntent"); }, [](QMessageBox &) {}), asks);

    QCOMPARE(quit.size(), asks ? 0 : 1);
}

void ServiceQuit::timers_tick_while_the_question_is_open()
{
    RunningService running;
    running.standInFor(running.main)->setProperty("number", 3);
    QVERIFY(withModal<QMessageBox>([&] { running.call("closeIntent"); },
                                   [&](QMessageBox &) {
                                       QTimer *hourly = running.service->refreshTimer;
                                       hourly->setInterval(1);
                                       QTRY_VERIFY(!running.service->messages.isEmpty());
                                       hourly->stop();
                                   }));
}

void ServiceQuit::end_of_the_session_quits_without_asking()
{
    RunningService running;
    running.call("show");
    QVERIFY(!QGuiApplication::isFallbackSessionManagementEnabled()); // the fallback would close the windows one by one
    QTimer::singleShot(0, qApp, [] {
        QEvent quit(QEvent::Quit);
        QCoreApplication::sendEvent(qApp, &quit);
        QVERIFY(quit.isAccepted());
    });
    QCOMPARE(qApp->exec(), 0);
    QVERIFY(running.main->isVisible()); // not closed: no question was asked
}

void ServiceQuit::preference_is_stored_as_given_data()
{
    QTest::addColumn<bool>("value");
    QTest::addColumn<QByteArray>("line");
    QTest::newRow("true") << true << QByteArray("\nDontAskBeforeQuit=true\n");
    QTest::newRow("false") << false << QByteArray("\nDontAskBeforeQuit=false\n");
}

void ServiceQuit::preference_is_stored_as_given()
{
    QFETCH(bool, value);
    QFETCH(QByteArray, line);
    RunningService running;
    QMetaObject::invokeMethod(running.service, "dontAskBeforeQuit", Q_ARG(bool, value));
    QCOMPARE(SettingsFile::value(key), QVariant(value));
    QVERIFY(SettingsFile::content(SettingsFile::own()).contains(line));
}

void ServiceQuit::switching_launch_at_login_notifies_the_document_once_data()
{
    QTest::addColumn<bool>("before");
    QTest::addColumn<bool>("wanted");
    QTest::addColumn<int>("told");
    QTest::newRow("on to on") << true << true << 0;
    QTest::newRow("on to off") << true << false << 1;
    QTest::newRow("off to on") << false << true << 1;
    QTest::newRow("off to off") << false << false << 0;
}

void ServiceQuit::switching_launch_at_login_notifies_the_document_once()
{
    QFETCH(bool, before);
    QFETCH(bool, wanted);
    QFETCH(int, told);
    RunningService running; // a first start: on
    if (!before)
        QMetaObject::invokeMethod(running.service, "setAutorun", Q_ARG(bool, false));
    const QByteArray list = SettingsFile::content(SettingsFile::agentList());
    QSignalSpy changed(running.service, SIGNAL(autorunChanged(QVariant)));

    QMetaObject::invokeMethod(running.service, "setAutorun", Q_ARG(bool, wanted));

    QCOMPARE(changed.size(), told);
    if (told == 1) {
        // The signal carries a variant that holds a variant with a boolean.
        const QVariant value = changed.first().first().value<QVariant>();
        QCOMPARE(value, QVariant(wanted));
        QCOMPARE(value.userType(), int(QMetaType::Bool));
    }
    QCOMPARE(SettingsFile::content(SettingsFile::agentList()) == list, told == 0);
    QCOMPARE(running.launchAtLoginTick(), wanted);
}

void ServiceQuit::failed_write_of_the_list_is_not_shown()
{
    RunningService running;
    QMetaObject::invokeMethod(running.service, "setAutorun", Q_ARG(bool, false));
    // A file in place of the folder: not even root can write a list there.
    const QString folder = QDir::homePath() + "/Library";
    QVERIFY(QDir(folder).removeRecursively());
    QFile inTheWay(folder);
    QVERIFY(inTheWay.open(QIODevice::WriteOnly));
    QSignalSpy changed(running.service, SIGNAL(autorunChanged(QVariant)));

    QMetaObject::invokeMethod(running.service, "setAutorun", Q_ARG(bool, true));

    QVERIFY(changed.size() >= 1);
    QCOMPARE(changed.first().first().value<QVariant>(), QVariant(true));
    QCOMPARE(running.launchAtLoginTick(), true);
    QVERIFY(inTheWay.remove());
}

SERVICE_TEST_MAIN(ServiceQuit)

#include "tst_ServiceQuit.moc"
