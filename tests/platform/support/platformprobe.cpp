// platform_probe prepare          prints the effects of prepareProcess(), without an application object
// platform_probe window           the same with an application object, its resolution and its font
// platform_probe autorun on|off   switches launch at login of this executable
#include "autorun.h"
#include "prepareprocess.h"

#include <QDir>
#include <QFont>
#include <QGuiApplication>
#include <QJsonDocument>
#include <QJsonObject>
#include <QScreen>

#include <sys/stat.h>

#include <cstdio>

namespace {

QJsonValue environment(const char *name)
{
    return qEnvironmentVariableIsSet(name) ? QJsonValue(qEnvironmentVariable(name)) : QJsonValue();
}

QJsonObject report()
{
    const mode_t mask = umask(0);
    umask(mask);
    return {{"umask", static_cast<int>(mask)},
            {"application", QCoreApplication::applicationName()},
            {"temporary", QDir::tempPath()},
            {"QT_FONT_DPI", environment("QT_FONT_DPI")},
            {"QT_QPA_PLATFORM", environment("QT_QPA_PLATFORM")},
            {"QT_BEARER_POLL_TIMEOUT", environment("QT_BEARER_POLL_TIMEOUT")}};
}

void print(const QJsonObject &object)
{
    std::puts(QJsonDocument(object).toJson(QJsonDocument::Compact).constData());
}

} // namespace

int main(int argc, char **argv)
{
    const QByteArray task = argc > 1 ? argv[1] : "";
    if (task == "autorun" && argc > 2) {
        const QCoreApplication application(argc, argv);
        Autorun().setAutorun(qstrcmp(argv[2], "on") == 0);
        return 0;
    }

    prepareProcess();
    if (task == "prepare") {
        print(report());
        return 0;
    }
    const QGuiApplication application(argc, argv);
    QJsonObject result = report();
    result["platform"] = QGuiApplication::platformName();
    result["dpi"] = QGuiApplication::primaryScreen()->logicalDotsPerInch();
    result["fontPointSize"] = QGuiApplication::font().pointSizeF();
    print(result);
    return 0;
}
