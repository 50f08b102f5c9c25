#pragma once

#include <QByteArray>
#include <QString>
#include <QVariant>

/// The program's settings as other programs see them: files under the test's configuration folder.
namespace SettingsFile {

/// The program's own file and the sibling product's.
QString own();
QString sibling();

/// Replaces the file, or removes it when the content is null, such that a store opened afterwards sees it.
void replace(const QString &path, const QByteArray &content);

/// What is on disk, with all pending values of the running service written out first.
QByteArray content(const QString &path);

/// A value of the own store, and its setting; what is set is seen by the running service at once.
QVariant value(const QString &key);
void setValue(const QString &key, const QVariant &value);
void remove(const QString &key);
QStringList keys();

/// The launch-at-login property list.
QString agentList();

/// No settings, no property list, nothing of an earlier test.
void forgetEverything();

} // namespace SettingsFile
