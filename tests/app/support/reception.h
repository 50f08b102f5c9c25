#pragma once

#include "qtlocalpeer.h"
#include "rawpeer.h"

#include <QSignalSpy>

/// A first instance and a sender that has connected to it and sent some bytes, which the instance has not read yet.
struct Reception
{
    Reception(const QString &id, const QString &path, const QByteArray &bytes)
        : first(nullptr, id)
    {
        if (first.isClient() || !sender.connectTo(path) || !sender.send(bytes))
            qFatal("The first instance does not listen at %s", qPrintable(path));
    }

    QtLocalPeer first;
    QSignalSpy spy{&first, SIGNAL(messageReceived(QString))};
    RawPeer sender;
};
