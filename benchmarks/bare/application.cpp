// The least that a second start can do: an application object, built and left.
#include <QApplication>

int main(int argc, char *argv[])
{
    const QApplication application(argc, argv);
    return 0;
}
