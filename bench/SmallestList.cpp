// The smallest Qt program with a list, for what it takes to start: folimark-smallest-list ROWS

#include <QApplication>
#include <QListWidget>

#include <cstdlib>

int main(int count, char** arguments) {
    const QApplication application(count, arguments);
    QListWidget list;
    const int rows = count > 1 ? std::atoi(arguments[1]) : 0;
    for (int row = 0; row < rows; ++row) {
        list.addItem(QStringLiteral("Album %1").arg(row));
    }
    list.resize(640, 400);
    list.show();
    return QApplication::exec();
}
