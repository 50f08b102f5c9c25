#include "autorun.h"

#include "loginagent.h"
#include "settingslock.h"

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
    dropEmptyLock(m_settings->fileName());
}

Autorun::~Autorun()
{
    delete m_settings;
}

bool Autorun::isAutorun() const
{
    const QVariant disabled = LoginAgent::storedValue(*m_settings, disabledKey);
    // Without the key launchd would start the program, but the switch of installed versions shows it as off.
    const bool on = !disabled.isNull() && !disabled.toBool();
    if (QFileInfo::exists(m_settings->fileName()) || LoginAgent::hasEntry()) {
        updateEntry(on); // the list may have been edited by hand
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
    // Off disables the agent; the file stays.
    m_settings->setValue(disabledKey, !autorun);
    m_settings->sync();

    // The list's state, not `autorun`: after a failed write the entry must match the list.
    updateEntry(isAutorun());
}

/// Makes the desktop's autostart entry match the list.
void Autorun::updateEntry(bool on) const
{
    const QString program = LoginAgent::storedValue(*m_settings, programKey).toString();

    LoginAgent::updateEntry(program.isEmpty() ? QCoreApplication::applicationFilePath() : program, on);
}
