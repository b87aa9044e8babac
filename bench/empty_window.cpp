// SPDX-License-Identifier: MIT
// What any program with a window and a table pays for the toolkit: the measure of the start-up bench.
#include <QApplication>
#include <QMainWindow>
#include <QStandardItemModel>
#include <QTableView>

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    QStandardItemModel model(0, 4);
    QMainWindow window;
    auto* table = new QTableView(&window);
    table->setModel(&model);
    window.setCentralWidget(table);
    window.setWindowTitle("Empty");
    window.resize(1180, 690);  // the size of the main window, so that both fill the same number of pixels
    window.show();
    return QApplication::exec();
}
