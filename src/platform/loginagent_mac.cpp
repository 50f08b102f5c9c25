#include "loginagent.h"

QSettings::Format LoginAgent::listFormat()
{
    return QSettings::NativeFormat; // a property list for a file name that ends in ".plist"
}

QVariant LoginAgent::storedValue(QSettings &list, const QString &key)
{
    list.sync();
    return list.value(key);
}

bool LoginAgent::hasEntry()
{
    return false;
}

void LoginAgent::updateEntry(const QString &, bool)
{
    // launchd reads the list itself.
}
