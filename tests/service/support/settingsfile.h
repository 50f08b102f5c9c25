#pragma once

#include <QByteArray>
#include <QString>
#include <QVariant>

/// The program's settings as other programs see them: files in the test's configuration folder.
namespace SettingsFile {

/// The program's file and the sibling product's.
QString own();
QString sibling();

/// Replaces the file, or removes it when the content is null; QSettings objects created afterwards see the change.
void replace(const QString &path, const QByteArray &content);

/// The file's content, after all pending values of the running service have been written.
QByteArray content(const QString &path);

/// Reads and sets a value of the program's settings; the running service sees a new value at once.
QVariant value(const QString &key);
void setValue(const QString &key, const QVariant &value);
void remove(const QString &key);
QStringList keys();

/// The launch-at-login property list.
QString agentList();

/// Removes the settings and the property list of earlier tests.
void forgetEverything();

} // namespace SettingsFile
