#pragma once

#include <QString>

/// The system's name in the statistics, from its QSysInfo::MacVersion code.
inline QString readableMacVersion(int version)
{
    switch (version) {
    case 8: return QStringLiteral("OS X 10.6 Snow Leopard");
    case 9: return QStringLiteral("OS X 10.7 Lion");
    case 10: return QStringLiteral("OS X 10.8 Mountain Lion");
    case 11: return QStringLiteral("OS X 10.9 Mavericks");
    default: return QStringLiteral("Unknown version");
    }
}
