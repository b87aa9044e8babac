// SPDX-License-Identifier: MIT
// An empty program with a window and a table: shows the toolkit's own cost for the start-up bench.
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
    window.resize(1180, 690);  // the size of the main window
    window.show();
    return QApplication::exec();
}
