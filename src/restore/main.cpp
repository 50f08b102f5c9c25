#include "restorewindow.h"

#include "prepareprocess.h"

#include <QApplication>
#include <QIcon>

int main(int argc, char *argv[])
{
    prepareProcess(); // which also gives this program the widget's name, and with it the data folder

    QApplication application(argc, argv);
    QApplication::setWindowIcon(QIcon::fromTheme(QStringLiteral("com.olmeric.vesktandry")));
    RestoreWindow window{StoreFiles::ofApplication()};
    window.show();
    return QApplication::exec();
}
