// What any program with tabs and a table costs to start.
#include <QApplication>
#include <QTabWidget>
#include <QTableWidget>

int main(int count, char** values) {
    constexpr int kRows = 100, kColumns = 13, kTabs = 10;
    QApplication application(count, values);
    QTabWidget tabs;
    QTableWidget table(kRows, kColumns);
    for (int row = 0; row < kRows; ++row)
        for (int column = 0; column < kColumns; ++column)
            table.setItem(row, column, new QTableWidgetItem(QString::number(row * kColumns + column)));
    tabs.addTab(&table, QStringLiteral("1"));
    for (int tab = 2; tab <= kTabs; ++tab)
        tabs.addTab(new QWidget, QString::number(tab));
    tabs.resize(1000, 680);
    tabs.show();
    return QApplication::exec();
}
