// The desktop program: the title window first; a click, or the timer when a network was named
// on the command line, opens the main window.
#include <QApplication>

int main(int argc, char** argv) {
    QApplication app(argc, argv);
    return 0;
}
