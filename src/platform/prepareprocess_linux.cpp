#include "prepareprocess.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QFont>
#include <QGuiApplication>

#include <sys/stat.h>

namespace {

constexpr char temporaryVariable[] = "TMPDIR";
constexpr char fontDpiVariable[] = "QT_FONT_DPI";
constexpr char platformVariable[] = "QT_QPA_PLATFORM";
constexpr char networkPollVariable[] = "QT_BEARER_POLL_TIMEOUT";
constexpr char never[] = "2147483647"; // milliseconds: 24 days, the most that Qt takes
constexpr qreal usualDpi = 96;
constexpr qreal documentDpi = 72;

// Both routines run inside the constructor of the application object: the window system is open, its resolution read,
// and no font in use yet.

void keepDialogTextSize()
{
    // Qt has read the value; a browser or mail program that we start must not inherit it.
    qunsetenv(fontDpiVariable);
    if (!qobject_cast<QGuiApplication *>(QCoreApplication::instance())) {
        return;
    }
    QFont font = QGuiApplication::font();
    if (font.pointSizeF() <= 0) { // a size in pixels does not depend on the resolution
        return;
    }
    font.setPointSizeF(font.pointSizeF() * usualDpi / documentDpi);
    QGuiApplication::setFont(font);
}

void forgetPlatform()
{
    qunsetenv(platformVariable);
}

} // namespace

void prepareProcess()
{
    // Patients' data: the database, the settings, the lock file and the socket are for their owner alone.
    umask(077);

    // The patients' folder has this name. The executable's may differ, in a link or a copy.
    QCoreApplication::setApplicationName(QStringLiteral("tandry"));

    // Otherwise Qt puts the lock file into the current folder, or into one below it.
    const QFileInfo temporary(qEnvironmentVariable(temporaryVariable));
    if (!temporary.isAbsolute() || !temporary.isDir()) {
        qunsetenv(temporaryVariable);
    }

    // The documents' point sizes are drawn for 72 dots per inch, where a point is a pixel.
    if (!qEnvironmentVariableIsSet(fontDpiVariable)) {
        qputenv(fontDpiVariable, "72");
        qAddPreRoutine(keepDialogTextSize);
    }

    // Under Wayland a program can neither place its window nor keep it on top.
    if (!qEnvironmentVariableIsSet(platformVariable)) {
        qputenv(platformVariable, "xcb;wayland");
        qAddPreRoutine(forgetPlatform);
    }

    // Once the program has used the network, Qt polls the interfaces every 10 s. The variable stays set: a thread of Qt
    // reads it late, and programs that we start learn of new networks from the system.
    if (!qEnvironmentVariableIsSet(networkPollVariable)) {
        qputenv(networkPollVariable, never);
    }
}
