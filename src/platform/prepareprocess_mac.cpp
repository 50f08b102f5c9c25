#include "prepareprocess.h"

#include <sys/stat.h>

void prepareProcess()
{
    // Patients' data: the database, the settings, the lock file and the socket are their owner's alone.
    umask(077);
}
