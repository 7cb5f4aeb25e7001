// The floor of a start: a window of the program's size with nothing in it but the title of one
// menu, or, with --blank, without a letter. What stands between the two is the price of text:
// reading the configuration of the fonts, finding and opening one.

#include <QApplication>
#include <QMainWindow>
#include <QMenuBar>

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    QMainWindow window;
    if (!QApplication::arguments().contains(QStringLiteral("--blank")))
        window.menuBar()->addMenu(QStringLiteral("File"));
    window.resize(1120, 800);
    window.show();
    return QApplication::exec();
}
