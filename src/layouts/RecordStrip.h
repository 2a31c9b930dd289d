// A record in cells of one width: a ruler, its characters, and its bytes in hexadecimal where they are given.
#pragma once

#include <QScrollArea>

namespace layouts {

class RecordStrip : public QScrollArea {
public:
    explicit RecordStrip(QWidget* parent);

    // `bytes` is empty for a file of texts. `fields` are the positions, from 1, at which a field begins.
    void show(const QString& text, const QByteArray& bytes, const QList<int>& fields);
    void showPosition(int position);

private:
    class Cells;

    Cells* m_cells;
};

}  // namespace layouts
