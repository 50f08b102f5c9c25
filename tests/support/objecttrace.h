#pragma once

#include <QObject>
#include <QString>
#include <QVector>

#include <thread>

/// Qt's hooks for debuggers: the fourth and fifth entries of this array are called for each object.
extern Q_CORE_EXPORT quintptr qtHookData[];

/// The objects that this thread has created since the trace began and that still exist, in order of creation. Only one
/// trace can exist at a time.
class ObjectTrace
{
    Q_DISABLE_COPY(ObjectTrace)

public:
    struct Made
    {
        QObject *object;
        /// The result of `note` at the creation of the object.
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

    /// The first object of that class; null when there is none.
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
