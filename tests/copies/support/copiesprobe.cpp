// The program that the tests kill. It repeats one kind of work in the data folder that is its second argument, and
// prints the number of each generation before it begins with it.

#include "copyfolder.h"
#include "exchange.h"
#include "generation.h"

#include <QCoreApplication>

#include <cstdio>

namespace {

/// Replaces the store with the next generation at once, like a commit.
void writeStore(const StoreFiles &store, int number)
{
    Exchange exchange(store);
    const QString folder = exchange.begin();
    if (folder.isEmpty())
        qFatal("The exchange cannot begin");
    generation::write(folder, number);
    const QString reason = exchange.commit();
    if (!reason.isEmpty())
        qFatal("%s", qPrintable(reason));
}

} // namespace

int main(int argc, char *argv[])
{
    const QCoreApplication application(argc, argv);
    const QString what = application.arguments().value(1);
    const StoreFiles store(application.arguments().value(2));
    const int first = application.arguments().value(3).toInt();
    CopyFolder copyFolder(store);
    copyFolder.recover();
    for (int number = first;; ++number) {
        printf("%d\n", number);
        fflush(stdout);
        writeStore(store, number);
        const QDate start(2026, 1, 1);
        if (what == "replace")
            copyFolder.copyDay(start, true);
        else if (what == "rotate")
            copyFolder.copyDay(start.addDays(number), true);
    }
}
