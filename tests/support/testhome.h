#pragma once

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

/// A temporary home for the test, removed by the destructor: home, configuration, data, cache, runtime and temporary
/// folders in one new folder. Construct it before the application object, because Qt caches some of these paths, and
/// keep it until the end of `main`.
class TestHome
{
public:
    TestHome()
    {
        if (!m_root.isValid())
            qFatal("Cannot create the test's home: %s", qPrintable(m_root.errorString()));
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
            qFatal("The test's folder %s cannot be created", qPrintable(folder));
        // Qt warns about a runtime folder that is accessible to others.
        QFile::setPermissions(folder, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
        qputenv(variable, QFile::encodeName(folder));
    }

    QTemporaryDir m_root;
};
