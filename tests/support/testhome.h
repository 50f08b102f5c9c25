#pragma once

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

/// A home of the test's own, removed with the object: home, configuration, data, cache, runtime and temporary folders
/// all lie below one fresh folder. Construct it before the application object, since Qt remembers some of these
/// places, and keep it alive until the end of `main`.
class TestHome
{
public:
    TestHome()
    {
        if (!m_root.isValid())
            qFatal("No folder for the test's own home: %s", qPrintable(m_root.errorString()));
        set("HOME", home());
        set("XDG_CONFIG_HOME", config());
        set("XDG_DATA_HOME", data());
        set("XDG_CACHE_HOME", cache());
        set("XDG_RUNTIME_DIR", runtime());
        set("TMPDIR", temporary());
    }

    QString home() const { return path("home"); }
    QString config() const { return path("home/.config"); }
    QString data() const { return path("home/.local/share"); }
    QString cache() const { return path("home/.cache"); }
    QString runtime() const { return path("run"); }
    QString temporary() const { return path("tmp"); }

private:
    Q_DISABLE_COPY(TestHome)

    QString path(const char *below) const { return m_root.filePath(QLatin1String(below)); }

    static void set(const char *variable, const QString &folder)
    {
        if (!QDir().mkpath(folder))
            qFatal("The test's folder %s cannot be made", qPrintable(folder));
        // Owner alone, which the runtime folder must be or Qt complains of it.
        QFile::setPermissions(folder, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
        qputenv(variable, QFile::encodeName(folder));
    }

    QTemporaryDir m_root;
};
