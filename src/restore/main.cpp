#include "restorewindow.h"

#include "prepareprocess.h"

#include <QApplication>
#include <QIcon>

int main(int argc, char *argv[])
{
    prepareProcess(); // also sets the application name, which leads to the widget's data folder

    QApplication application(argc, argv);
    QApplication::setWindowIcon(QIcon::fromTheme(QStringLiteral("com.olmeric.vesktandry")));
    RestoreWindow window{StoreFiles::ofApplication()};
    window.show();
    return QApplication::exec();
}
