#include "copy.h"

#include <QRegularExpression>

namespace {

const QLatin1String beforeUpgrade("-before-upgrade");
const QLatin1String beforeReturn("-before-return");

} // namespace

QString Copy::name() const
{
    QString name = day.toString(Qt::ISODate);
    if (kind != Daily) {
        name += kind == BeforeUpgrade ? beforeUpgrade : beforeReturn;
    }
    return number > 1 ? name + QLatin1Char('-') + QString::number(number) : name;
}

Copy Copy::named(const QString &name)
{
    static const QRegularExpression form(
        QStringLiteral("\\A(\\d{4}-\\d{2}-\\d{2})(-before-upgrade|-before-return)?(?:-(\\d+))?\\z"));
    const QRegularExpressionMatch match = form.match(name);
    Copy copy;
    copy.day = QDate::fromString(match.captured(1), Qt::ISODate);
    copy.kind = match.captured(2) == beforeUpgrade ? BeforeUpgrade
        : match.captured(2) == beforeReturn        ? BeforeReturn
                                                   : Daily;
    copy.number = match.captured(3).isEmpty() ? 1 : match.captured(3).toInt();
    return copy;
}
