#include "restorewindow.h"

#include "prepareprocess.h"

#include <QApplication>
#include <QIcon>
#include <QStandardPaths>

namespace {

/// Outside a bundle Qt names a program after its file, and its data folder with it; ours is the widget's.
QString widgetsDataFolder()
{
    QString folder = QStandardPaths::writableLocation(QStandardPaths::AppLocalDataLocation);
    const QLatin1String suffix("-restore");
    if (folder.endsWith(suffix)) {
        folder.chop(suffix.size());
    }
    return folder;
}

} // namespace

int main(int argc, char *argv[])
{
    prepareProcess();

    QApplication application(argc, argv);
    QApplication::setWindowIcon(QIcon::fromTheme(QStringLiteral("com.olmeric.vesktandry")));
    RestoreWindow window{StoreFiles(widgetsDataFolder())};
    window.show();
    return QApplication::exec();
}
