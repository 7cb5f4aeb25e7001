// The floor of a start: a window of the program's size with nothing in it but the title of one
// menu, so that it pays for text as well: reading the configuration of the fonts, finding and
// opening one.

#include <QApplication>
#include <QMainWindow>
#include <QMenuBar>

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    QMainWindow window;
    window.menuBar()->addMenu(QStringLiteral("File"));
    window.resize(1120, 800);
    window.show();
    return QApplication::exec();
}
