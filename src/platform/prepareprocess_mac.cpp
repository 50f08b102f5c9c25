#include "prepareprocess.h"

#include <QCoreApplication>
#include <QFileInfo>

#include <sys/stat.h>

namespace {

constexpr char temporaryVariable[] = "TMPDIR";

}

void prepareProcess()
{
    // Patients' data: the database, the settings, the lock file and the socket are their owner's alone.
    umask(077);

    // The patients lie in a folder of this name: not the executable's, which may be called through a link or a copy.
    QCoreApplication::setApplicationName(QStringLiteral("Vesk Tandry"));

    // Qt would take the current folder for the temporary one, and lay the lock file there.
    if (qEnvironmentVariableIsSet(temporaryVariable) && !QFileInfo(qEnvironmentVariable(temporaryVariable)).isDir()) {
        qunsetenv(temporaryVariable);
    }
}
