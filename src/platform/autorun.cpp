#include "autorun.h"

#include "loginagent.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QSettings>
#include <QStandardPaths>
#include <QStringList>

namespace {

const QString programKey = QStringLiteral("Program");
const QString disabledKey = QStringLiteral("Disabled");

QString listPath()
{
    return QStandardPaths::writableLocation(QStandardPaths::HomeLocation)
        + QLatin1String("/Library/LaunchAgents/com.olmeric.vesktandry.plist");
}

} // namespace

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
    const bool on = !disabled.isNull() && !disabled.toBool();
    // The list may have been edited by hand since the last time.
    if (QFileInfo::exists(m_settings->fileName()) || LoginAgent::hasEntry()) {
        follow(on);
    }
    return on;
}

void Autorun::setAutorun(bool autorun)
{
    const QString program = QCoreApplication::applicationFilePath();
    m_settings->setValue(QStringLiteral("Label"), QStringLiteral("com.olmeric.vesktandry"));
    m_settings->setValue(programKey, program);
    m_settings->setValue(QStringLiteral("ProgramArguments"), QStringList{program, QStringLiteral("startup")});
    m_settings->setValue(QStringLiteral("RunAtLoad"), true);
    // Switching off keeps the file; the agent is only disabled.
    m_settings->setValue(disabledKey, !autorun);
    m_settings->sync();

    // What the list says now, not what was wanted: if it could not be written, both still say the same.
    follow(isAutorun());
}

/// Brings what a login needs besides the list in step with it.
void Autorun::follow(bool on) const
{
    const QString program = LoginAgent::storedValue(*m_settings, programKey).toString();

    LoginAgent::followList(program.isEmpty() ? QCoreApplication::applicationFilePath() : program, on);
}
