#pragma once

#include <QObject>
#include <QString>
#include <QVector>

#include <thread>

/// The hooks that Qt keeps for debuggers: an array of which the fourth and the fifth are called for each object.
extern Q_CORE_EXPORT quintptr qtHookData[];

/// The objects that this thread has made since the trace began and that still live, in the order of their making.
/// One at a time.
class ObjectTrace
{
    Q_DISABLE_COPY(ObjectTrace)

public:
    struct Made
    {
        QObject *object;
        /// What `note` said when the object was made.
        QString noted;
    };

    explicit ObjectTrace(QString (*wantedNote)() = [] { return QString(); })
    {
        made().clear();
        note() = wantedNote;
        qtHookData[addObject] = quintptr(&add);
        qtHookData[removeObject] = quintptr(&remove);
    }
    ~ObjectTrace() { qtHookData[addObject] = qtHookData[removeObject] = 0; }

    static QVector<Made> &made()
    {
        static QVector<Made> objects;
        return objects;
    }

    /// The first of that class; null when there is none.
    template<typename Class>
    static Class *first()
    {
        for (const Made &each : qAsConst(made())) {
            if (auto *object = qobject_cast<Class *>(each.object))
                return object;
        }
        return nullptr;
    }

private:
    static constexpr int addObject = 3;
    static constexpr int removeObject = 4;

    static QString (*&note())()
    {
        static QString (*current)() = nullptr;
        return current;
    }
    static bool isTraced()
    {
        static const std::thread::id traced = std::this_thread::get_id();
        return std::this_thread::get_id() == traced;
    }
    static void add(QObject *object)
    {
        if (isTraced())
            made().append({object, note()()});
    }
    static void remove(QObject *object)
    {
        for (int i = isTraced() ? made().size() - 1 : -1; i >= 0; --i) {
            if (made().at(i).object == object) {
                made().remove(i);
                return;
            }
        }
    }
};
