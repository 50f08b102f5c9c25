#pragma once

#include <QJSValue>
#include <QVariant>

/// Unwraps a script value. An array from a document may arrive as a QJSValue inside the variant, which Qt does not
/// convert to a list and another document's engine rejects.
inline QVariant plainVariant(const QVariant &value)
{
    return value.userType() == qMetaTypeId<QJSValue>() ? value.value<QJSValue>().toVariant() : value;
}
