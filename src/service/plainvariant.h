#pragma once

#include <QJSValue>
#include <QVariant>

/// The value without its script: an array that a document hands over may arrive as a script value inside the variant,
/// which belongs to that document's engine, is no list to Qt, and is refused by the engine of another document.
inline QVariant plainVariant(const QVariant &value)
{
    return value.userType() == qMetaTypeId<QJSValue>() ? value.value<QJSValue>().toVariant() : value;
}
