#include "widgetservice.h"

#include "autorun.h"
#include "settingskeys.h"
#include "settingslock.h"

#include <QCheckBox>
#include <QMessageBox>
#include <QSettings>
#include <QUuid>

namespace {

// The product is the organisation and the maker the application. The reversal looks like a slip, but installations have
// their values there, and so has the sibling product.
const QString productOrganization = QStringLiteral("Vesk Tandry");
const QString siblingOrganization = QStringLiteral("Vesk Korrin");
const QString makerApplication = QStringLiteral("Olmeric");

} // namespace

void WidgetService::createAutorun()
{
    m_autorun = new Autorun;
    Q_ASSERT(m_autorun);
}

void WidgetService::openSettings()
{
    settings = new QSettings(productOrganization, makerApplication);
    Q_ASSERT(settings);
    dropEmptyLock(settings->fileName());
}

/// On the first start, copies the sibling product's identifier or creates one, and switches launch at login on.
void WidgetService::identifyInstallation()
{
    if (settings->value(SettingsKeys::uuid).isValid()) {
        return;
    }
    const QSettings sibling(siblingOrganization, makerApplication);
    const QVariant shared = sibling.value(SettingsKeys::uuid);
    settings->setValue(SettingsKeys::uuid, shared.isValid() ? shared : QVariant(QUuid::createUuid()));
    m_autorun->setAutorun(true);
}

void WidgetService::announceAutorun()
{
    emit autorunChanged(QVariant(m_autorun->isAutorun()));
}

void WidgetService::setAutorun(bool value)
{
    if (m_autorun->isAutorun() == value) {
        return;
    }
    m_autorun->setAutorun(value);
    emit autorunChanged(QVariant(value));
}

void WidgetService::closeIntent()
{
    const QVariant dontAsk = settings->value(SettingsKeys::dontAskBeforeQuit);

    if (dontAsk.isValid() && dontAsk.toBool()) {
        emit quit();
        return;
    }

    QMessageBox box;
    auto *checkBox = new QCheckBox(tr("Ne plus me demander"));
    box.setIconPixmap(QIcon(QStringLiteral(":/images/tray.png")).pixmap(64));
    box.setWindowTitle(tr("Vesk Tandry"));
    box.setText(tr("Fermeture de Tandry"));
    // Without accents: the wording that users of every installed version know.
    box.setInformativeText(tr("Etes-vous sur de vouloir fermer le widget Tandry ?"));
    box.setCheckBox(checkBox);
    box.setStandardButtons(QMessageBox::Ok | QMessageBox::Cancel);
    box.setDefaultButton(QMessageBox::Cancel);
    box.button(QMessageBox::Cancel)->setText(tr("Annuler"));
    // Stored when toggled, not on OK: after ticking and cancelling, the next close quits without a question.
    connect(checkBox, SIGNAL(toggled(bool)), this, SLOT(dontAskBeforeQuit(bool)));

    if (box.exec() == QMessageBox::Ok) {
        emit quit();
    }
}

void WidgetService::dontAskBeforeQuit(bool value)
{
    settings->setValue(SettingsKeys::dontAskBeforeQuit, value);
}
