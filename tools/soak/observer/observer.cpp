#include <QCoreApplication>
#include <QEvent>
#include <QFile>
#include <QGenericPlugin>
#include <QLabel>
#include <QTimer>

#include <ctime>

/// Records every hourly tick, every daily tick and every tray message from inside the unchanged program: one line each, with
/// the second on the program's clock, in the file that TANDRY_OBSERVED names.
class Observer : public QObject
{
    Q_OBJECT

public:
    Observer()
        : notes(QFile::decodeName(qgetenv("TANDRY_OBSERVED")))
    {
        if (!notes.open(QIODevice::WriteOnly | QIODevice::Append | QIODevice::Unbuffered))
            qFatal("TANDRY_OBSERVED cannot be written: %s", qPrintable(notes.errorString()));
        QCoreApplication::instance()->installEventFilter(this);
    }

    bool eventFilter(QObject *object, QEvent *event) override
    {
        if (event->type() == QEvent::Timer) {
            const auto *timer = qobject_cast<QTimer *>(object);
            // The copies' timer is hourly, too; the service's own is its child.
            if (timer && timer->interval() == hourMs && timer->parent() && timer->parent()->inherits("WidgetService"))
                note("tick");
            else if (timer && timer->interval() > hourMs)
                note("day");
        } else if (event->type() == QEvent::Show && object->inherits("QBalloonTip")) {
            QByteArray text = "message";
            const auto labels = object->findChildren<QLabel *>();
            for (const QLabel *label : labels) {
                if (!label->text().isEmpty()) // the label of the picture has no text
                    text += "|" + label->text().toUtf8();
            }
            note(text);
        }
        return false;
    }

private:
    static constexpr int hourMs = 3600000;

    void note(const QByteArray &what) { notes.write(QByteArray::number(qint64(time(nullptr))) + ' ' + what + '\n'); }

    QFile notes;
};

class ObserverPlugin : public QGenericPlugin
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID QGenericPluginFactoryInterface_iid FILE "observer.json")

public:
    QObject *create(const QString &, const QString &) override { return new Observer; }
};

#include "observer.moc"
