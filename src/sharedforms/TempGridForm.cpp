#include "TempGridForm.h"

#include <QAbstractTableModel>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSortFilterProxyModel>
#include <QTableView>
#include <QVBoxLayout>

#include "CodePage.h"
#include "Components.h"
#include "Errors.h"
#include "Query.h"

namespace {

constexpr int kRowHeight = 22;  // pixels

// Letters that look the same are the same to one who types to find.
QString searchable(const QString& text) {
    QString result = data::foldDigits(text).toLower();
    result.replace(QChar(0x06CC), QChar(0x064A)).replace(QChar(0x06A9), QChar(0x0643));
    return result;
}

// Beside what is shown: the row's key, and the cell's text as it is searched for.
enum Role { kKey = Qt::UserRole, kSearchable };

class PickModel : public QAbstractTableModel {
public:
    using QAbstractTableModel::QAbstractTableModel;

    void load(data::ResultSet result, const TTempGridForm::Column& first, const TTempGridForm::Column& second,
              const QString& keyField) {
        beginResetModel();
        m_result = std::move(result);
        m_key = m_result.indexOf(keyField);
        m_fields = {m_result.indexOf(first.field), m_result.indexOf(second.field)};
        m_titles = {first.caption, second.caption};
        endResetModel();
    }

    int rowCount(const QModelIndex& parent) const override {
        return parent.isValid() ? 0 : static_cast<int>(m_result.rows.size());
    }
    int columnCount(const QModelIndex& parent) const override { return parent.isValid() ? 0 : 2; }
    QVariant data(const QModelIndex& index, int role) const override {
        const auto text = [&](int column) {
            return data::valueText(m_result.rows[index.row()].value(column));
        };
        switch (role) {
            case Qt::DisplayRole:
                return text(m_fields.value(index.column(), -1));
            case kSearchable:
                return searchable(text(m_fields.value(index.column(), -1)));
            case kKey:
                return text(m_key);
            default:
                return {};
        }
    }
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override {
        return orientation == Qt::Horizontal && role == Qt::DisplayRole ? m_titles.value(section)
                                                                        : QVariant();
    }

private:
    data::ResultSet m_result;
    int m_key = -1;
    QList<int> m_fields;
    QStringList m_titles;
};

// A work table that goes with the list, however the list ends.
class WorkTableGuard {
public:
    WorkTableGuard(data::Connection& connection, QString table)
        : m_connection(connection), m_table(std::move(table)) {}
    ~WorkTableGuard() {
        if (m_table.isEmpty())
            return;
        try {
            m_connection.execute(QStringLiteral("drop table ") + m_table);
        } catch (const data::TextException&) {
            // A "##" table goes with the connection at the latest.
        }
    }
    WorkTableGuard(const WorkTableGuard&) = delete;
    WorkTableGuard& operator=(const WorkTableGuard&) = delete;

private:
    data::Connection& m_connection;
    QString m_table;
};

}  // namespace

struct TTempGridForm::Private {
    explicit Private(data::Connection* connection) : connection(connection) {
        offered.setSourceModel(&model);
        offered.setFilterRole(kSearchable);
        offered.setFilterKeyColumn(-1);
    }

    data::Connection* connection;
    PickModel model;
    QSortFilterProxyModel offered;
    QTableView* grid = nullptr;
    QLineEdit* search = nullptr;
    QLabel* empty = nullptr;
    widgets::CaptionBar* caption = nullptr;
    QPushButton* ok = nullptr;

    QString key(int row) const { return offered.index(row, 0).data(kKey).toString(); }
    int rowOf(const QString& key) const {
        for (int row = 0; row < offered.rowCount(); ++row)
            if (this->key(row).trimmed() == key.trimmed())
                return row;
        return -1;
    }
    void select(int row) {
        if (offered.rowCount() == 0)
            return;
        grid->setCurrentIndex(offered.index(qBound(0, row, offered.rowCount() - 1), 0));
        grid->scrollTo(grid->currentIndex());
    }
    void narrow(const QString& text) {
        offered.setFilterFixedString(searchable(text.trimmed()));
        empty->setVisible(offered.rowCount() == 0);
        ok->setEnabled(offered.rowCount() > 0);
        select(0);
    }

    void makeCaption(TTempGridForm& form) {
        caption = widgets::named(new widgets::CaptionBar(&form), "Caption_Panel");
        caption->setColors(form.palette().color(QPalette::Highlight), Qt::white);
        caption->setFixedHeight(24);
        auto* close = widgets::named(new widgets::SpeedButton(caption), "sb_Closed");
        close->setGlyph(widgets::SpeedButton::Glyph::Close);
        close->setToolTip(QStringLiteral("بستن فرم"));
        auto* row = new QHBoxLayout(caption);
        row->setContentsMargins(4, 2, 4, 2);
        row->addWidget(close);
        row->addStretch();
        QObject::connect(close, &QToolButton::clicked, &form,
                         [&form] { form.setModalResult(widgets::mrCancel); });
    }

    // The rows that are offered, and above them what narrows them.
    void makeList(TTempGridForm& form) {
        search = widgets::named(new QLineEdit(&form), "SearchEdit");
        search->setPlaceholderText(QStringLiteral("بخشي از كد يا نام را بنويسيد"));
        search->setAlignment(Qt::AlignRight | Qt::AlignAbsolute);  // for codes as well
        grid = widgets::named(new QTableView(&form), "DBGrid1");
        grid->setModel(&offered);
        grid->setSelectionBehavior(QAbstractItemView::SelectRows);
        grid->setSelectionMode(QAbstractItemView::SingleSelection);
        grid->setAlternatingRowColors(true);
        grid->verticalHeader()->hide();
        grid->verticalHeader()->setDefaultSectionSize(kRowHeight);
        grid->horizontalHeader()->setStretchLastSection(true);
        grid->horizontalHeader()->setHighlightSections(false);
        grid->setFocusProxy(search);
        empty = widgets::named(new QLabel(QStringLiteral("رديفي براي انتخاب نيست."), &form), "EmptyLabel");
        empty->setAlignment(Qt::AlignCenter);
    }
};

TTempGridForm::TTempGridForm(data::Connection* connection, QWidget* parent)
    : Form(QStringLiteral("TTempGridForm"), parent), d(std::make_unique<Private>(connection)) {
    d->makeCaption(*this);
    d->makeList(*this);
    d->search->installEventFilter(this);
    d->ok = widgets::named(new QPushButton(QStringLiteral("تاييد"), this), "OkBtn");
    auto* cancel = widgets::named(new QPushButton(QStringLiteral("انصراف"), this), "CancelBtn");
    auto* buttons = new QHBoxLayout;
    buttons->addWidget(d->ok);
    buttons->addStretch();
    buttons->addWidget(cancel);

    auto* body = new QVBoxLayout;
    body->setContentsMargins(8, 8, 8, 8);
    body->setSpacing(6);
    body->addWidget(d->search);
    body->addWidget(d->empty);
    body->addWidget(d->grid, 1);
    body->addLayout(buttons);
    auto* whole = new QVBoxLayout(this);
    whole->setContentsMargins(1, 1, 1, 1);
    whole->setSpacing(0);
    whole->addWidget(d->caption);
    whole->addLayout(body);

    connect(d->search, &QLineEdit::textChanged, this, [this](const QString& text) { d->narrow(text); });
    connect(d->grid, &QTableView::doubleClicked, this, [this] { chooseCurrent(); });
    connect(d->ok, &QPushButton::clicked, this, [this] { chooseCurrent(); });
    connect(cancel, &QPushButton::clicked, this, [this] { setModalResult(widgets::mrCancel); });
}

TTempGridForm::~TTempGridForm() = default;

std::optional<QString> TTempGridForm::pick(const QString& statement) {
    const WorkTableGuard guard(*d->connection, std::exchange(WorkTable, {}));
    d->model.load(d->connection->execute(statement), First, Second, KeyField);
    d->grid->setColumnWidth(0, First.width);
    d->search->clear();
    d->narrow({});
    d->select(d->rowOf(CurrentCode));
    setCaption(FormCaption);
    d->caption->setCaption(QStringLiteral("          ") + FormCaption);
    resize(qMax(260, First.width + Second.width + 60), 360);
    d->search->setFocus();

    const bool chosen = showModal() == widgets::mrOk && d->grid->currentIndex().isValid();
    return chosen ? std::optional(d->key(d->grid->currentIndex().row())) : std::nullopt;
}

QStringList TTempGridForm::offered() const {
    QStringList keys;
    for (int row = 0; row < d->offered.rowCount(); ++row)
        keys.append(d->key(row));
    return keys;
}

bool TTempGridForm::choose(const QString& key) {
    const int row = d->rowOf(key);
    if (row < 0)
        return false;
    d->select(row);
    chooseCurrent();
    return true;
}

void TTempGridForm::chooseCurrent() {
    if (d->grid->currentIndex().isValid())
        setModalResult(widgets::mrOk);
}

bool TTempGridForm::eventFilter(QObject* watched, QEvent* event) {
    if (watched != d->search || event->type() != QEvent::KeyPress)
        return Form::eventFilter(watched, event);
    const auto* key = static_cast<QKeyEvent*>(event);
    const int row = d->grid->currentIndex().row();
    const int page = qMax(1, d->grid->viewport()->height() / kRowHeight - 1);
    switch (key->key()) {
        case Qt::Key_Up:
            d->select(row - 1);
            return true;
        case Qt::Key_Down:
            d->select(row + 1);
            return true;
        case Qt::Key_PageUp:
            d->select(row - page);
            return true;
        case Qt::Key_PageDown:
            d->select(row + page);
            return true;
        case Qt::Key_Return:
        case Qt::Key_Enter:
            chooseCurrent();
            return true;
        case Qt::Key_Escape:
            setModalResult(widgets::mrCancel);
            return true;
        default:
            return false;
    }
}
