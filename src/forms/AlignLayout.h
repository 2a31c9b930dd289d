// Places the components of a panel as forms describe them: each takes an edge of what the ones before
// it have left, or all of it, or a place of its own.
#pragma once

#include <QLayout>
#include <vector>

namespace forms {

enum class Align { None, Top, Bottom, Left, Right, Client };

class AlignLayout : public QLayout {
public:
    explicit AlignLayout(QWidget* parent);
    ~AlignLayout() override;

    void add(QWidget* widget, Align align);

    void addItem(QLayoutItem* item) override;
    int count() const override;
    QLayoutItem* itemAt(int index) const override;
    QLayoutItem* takeAt(int index) override;
    QSize sizeHint() const override;
    QSize minimumSize() const override { return {}; }
    void setGeometry(const QRect& rect) override;

private:
    struct Entry {
        QLayoutItem* item;
        Align align;
    };
    std::vector<Entry> m_entries;
};

}  // namespace forms
