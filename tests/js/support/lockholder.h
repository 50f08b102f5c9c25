#pragma once

#include <QProcess>
#include <QtTest>

/// A second process that holds the database in the way of a statement, until released.
class LockHolder
{
public:
    enum Lock {
        Reading, ///< In the midst of a read: everybody may read and nobody commit.
        Writing, ///< In the midst of a write: everybody may read and nobody else write.
        Alone ///< Nobody else may even read.
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
            QTest::qFail("The second process does not hold the database: " + said + m_process.readAllStandardError()
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
