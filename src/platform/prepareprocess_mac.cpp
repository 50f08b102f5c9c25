#include "prepareprocess.h"

#include <QCoreApplication>
#include <QFileInfo>

#include <sys/stat.h>

namespace {

constexpr char temporaryVariable[] = "TMPDIR";

}

void prepareProcess()
{
    // Patients' data: the database, the settings, the lock file and the socket are for their owner alone.
    umask(077);

    // The patients' folder has this name. The executable's may differ, in a link or a copy.
    QCoreApplication::setApplicationName(QStringLiteral("Vesk Tandry"));

    // Otherwise Qt puts the lock file into the current folder, or into one below it.
    const QFileInfo temporary(qEnvironmentVariable(temporaryVariable));
    if (!temporary.isAbsolute() || !temporary.isDir()) {
        qunsetenv(temporaryVariable);
    }
}
