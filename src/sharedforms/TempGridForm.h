// The pick list: the host's form on which a caller lets the operator choose one code of many. The
// caller sets the members, hands over the statement that gives the rows, and reads the chosen code.
#pragma once

#include <QStringList>
#include <memory>
#include <optional>

#include "Connection.h"
#include "Form.h"

class TTempGridForm : public widgets::Form {
    Q_OBJECT

public:
    // A column of the list, over a field of what the statement gives.
    struct Column {
        QString caption;
        QString field;
        int width = 0;  // pixels
    };

    // The connection must outlive the form.
    explicit TTempGridForm(data::Connection* connection, QWidget* parent = nullptr);
    ~TTempGridForm() override;

    // 2 for a pick list of two columns, the one kind in use here.
    int Mode = 0;
    Column First, Second;
    QString FormCaption;
    QString KeyField;
    // The code that stands in the cell now; the row of it is selected when the list opens.
    QString CurrentCode;
    // The "##" table behind the statement; dropped when the list closes.
    QString WorkTable;

    // Shows the statement's rows and returns the chosen row's key, or no value when the operator gave
    // up (Escape, the close button, an empty list). Typing narrows the list; Enter or a double click
    // chooses.
    std::optional<QString> pick(const QString& statement);
    // The keys that the list shows now, for those who watch it.
    QStringList offered() const;
    // Chooses a key as a click would; false when the list does not offer it.
    bool choose(const QString& key);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void chooseCurrent();

    struct Private;
    std::unique_ptr<Private> d;
};
