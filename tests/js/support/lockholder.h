#pragma once

#include <QProcess>
#include <QtTest>

/// A second process that locks the database until it is released.
class LockHolder
{
public:
    enum Lock {
        Reading, ///< During a read: others can read but not commit.
        Writing, ///< During a write: others can read but not write.
        Alone ///< Exclusive: others can neither read nor write.
    };

    LockHolder(const QString &path, Lock lock)
    {
        const QString begin = lock == Reading ? "BEGIN" : lock == Writing ? "BEGIN IMMEDIATE" : "BEGIN EXCLUSIVE";
        m_process.start("/usr/bin/python3",
                        {"-c",
                         "import sqlite3, sys\n"
                         "connection = sqlite3.connect(sys.argv[1], isolation_level=None)\n"
                         "connection.execute(sys.argv[2])\n"
                         "connection.execute('SELECT COUNT(*) FROM sqlite_master').fetchone()\n"
                         "print('held', flush=True)\n"
                         "sys.stdin.read()\n",
                         path, begin});
        while (!m_process.canReadLine() && m_process.waitForReadyRead()) { }
        const QByteArray said = m_process.readAllStandardOutput();
        if (said != "held\n") {
            QTest::qFail("The second process could not lock the database: " + said + m_process.readAllStandardError()
                             + m_process.errorString().toUtf8(),
                         __FILE__, __LINE__);
        }
    }

    ~LockHolder() { release(); }

    void release()
    {
        m_process.closeWriteChannel();
        m_process.waitForFinished();
    }

private:
    Q_DISABLE_COPY(LockHolder)

    QProcess m_process;
};

Q_DECLARE_METATYPE(LockHolder::Lock)
