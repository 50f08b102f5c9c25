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

// Both run while the application object is being made: the window system is open by then, its resolution read, and
// no font has been used yet.

void keepDialogTextSize()
{
    // Qt has remembered the value; a browser or mail program that we open must not inherit it.
    qunsetenv(fontDpiVariable);
    if (!qobject_cast<QGuiApplication *>(QCoreApplication::instance())) {
        return;
    }
    QFont font = QGuiApplication::font();
    if (font.pointSizeF() <= 0) { // a size in pixels does not follow the resolution
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
    // Patients' data: the database, the settings, the lock file and the socket are their owner's alone.
    umask(077);

    // The patients lie in a folder of this name: not the executable's, which may be called through a link or a copy.
    QCoreApplication::setApplicationName(QStringLiteral("tandry"));

    // Qt would take the current folder for the temporary one, and lay the lock file there.
    if (qEnvironmentVariableIsSet(temporaryVariable) && !QFileInfo(qEnvironmentVariable(temporaryVariable)).isDir()) {
        qunsetenv(temporaryVariable);
    }

    // The documents' point sizes are drawn for 72 dots per inch, where a point is a pixel.
    if (!qEnvironmentVariableIsSet(fontDpiVariable)) {
        qputenv(fontDpiVariable, "72");
        qAddPreRoutine(keepDialogTextSize);
    }

    // Under Wayland a program may neither place its window nor keep it on top.
    if (!qEnvironmentVariableIsSet(platformVariable)) {
        qputenv(platformVariable, "xcb;wayland");
        qAddPreRoutine(forgetPlatform);
    }

    // Qt looks every 10 s which network interfaces there are, for as long as a program lives that once used the network.
    // It stays set, since a thread of Qt's reads it late; a program that we open hears of a new network from the system.
    if (!qEnvironmentVariableIsSet(networkPollVariable)) {
        qputenv(networkPollVariable, never);
    }
}
