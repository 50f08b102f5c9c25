#include "autorun.h"

#include "loginagent.h"

#include <QCoreApplication>
#include <QSettings>
#include <QStandardPaths>
#include <QStringList>

namespace {

const QString disabledKey = QStringLiteral("Disabled");

QString listPath()
{
    return QStandardPaths::writableLocation(QStandardPaths::HomeLocation)
        + QLatin1String("/Library/LaunchAgents/com.olmeric.vesktandry.plist");
}

}

Autorun::Autorun()
    : m_settings(new QSettings(listPath(), LoginAgent::listFormat()))
{
    Q_ASSERT(m_settings);
}

Autorun::~Autorun()
{
    delete m_settings;
}

bool Autorun::isAutorun() const
{
    const QVariant disabled = LoginAgent::storedValue(*m_settings, disabledKey);
    // Kept: without the key the system would start the program, yet it counts as off.
    if (disabled.isNull()) {
        return false;
    }
    return !disabled.toBool();
}

void Autorun::setAutorun(bool autorun)
{
    const QString program = QCoreApplication::applicationFilePath();
    m_settings->setValue(QStringLiteral("Label"), QStringLiteral("com.olmeric.vesktandry"));
    m_settings->setValue(QStringLiteral("Program"), program);
    m_settings->setValue(QStringLiteral("ProgramArguments"), QStringList{program, QStringLiteral("startup")});
    m_settings->setValue(QStringLiteral("RunAtLoad"), true);
    // Switching off keeps the file; the agent is only disabled.
    m_settings->setValue(disabledKey, !autorun);
    m_settings->sync();

    // What the list says now, not what was wanted: if it could not be written, both still say the same.
    LoginAgent::followList(program, isAutorun());
}
