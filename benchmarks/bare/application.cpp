// The bare minimum of a second start: constructs an application object and exits.
#include <QApplication>

int main(int argc, char *argv[])
{
    const QApplication application(argc, argv);
    return 0;
}
