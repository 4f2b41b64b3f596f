#include <QApplication>
#include <QMainWindow>

int main(int argc, char** argv) {
    QApplication app(argc, argv);
    QMainWindow window;
    window.setWindowTitle("Pendulon(tm) 3.71");
    window.show();
    return app.exec();
}
