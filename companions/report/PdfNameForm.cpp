#include "PdfNameForm.h"

#include <QDir>
#include <QLabel>
#include <QLineEdit>

#include "Components.h"
#include "DialogForm.h"
#include "Errors.h"

namespace report {
namespace {

class TPdfNameForm : public forms::DialogForm {
public:
    explicit TPdfNameForm(const QString& suggested)
        : DialogForm(QStringLiteral("TPdfNameForm"), QStringLiteral("ساختن فايل PDF")) {
        body().addWidget(new QLabel(QStringLiteral("نام و جاي فايل:"), this));
        m_name = widgets::named(new QLineEdit(suggested, this), "FileEdit");
        m_name->setLayoutDirection(Qt::LeftToRight);
        m_name->setAlignment(Qt::AlignLeft | Qt::AlignAbsolute);
        body().addWidget(m_name);
        m_note = widgets::named(new QLabel(this), "NoteLabel");
        m_note->setMinimumHeight(22);
        body().addWidget(m_note);
        QHBoxLayout& buttons = addButtonRow();
        setDefaultButton(
            addButton(buttons, QStringLiteral("OkBtn"), QStringLiteral("تاييد"), [this] { accept(); }));
        buttons.addStretch();
        addButton(buttons, QStringLiteral("CancelBtn"), QStringLiteral("انصراف"),
                  [this] { setModalResult(widgets::mrCancel); });
        connect(m_name, &QLineEdit::textChanged, this, [this] { look(); });
        resize(520, sizeHint().height());
        look();
        onShow = [this] { m_name->setFocus(); };
    }

    QString name() const {
        const QString name = m_name->text().trimmed();
        return QFileInfo(name).suffix().isEmpty() && !name.isEmpty() ? name + QStringLiteral(".pdf") : name;
    }

private:
    void look() {
        m_note->setText(QFileInfo(name()).isFile()
                            ? QStringLiteral("فايلي به اين نام هست و جاي آن را فايل تازه مي گيرد.")
                            : QString());
    }
    void accept() {
        if (QDir::isRelativePath(name()) || QFileInfo(name()).isDir()) {
            m_name->setFocus();
            throw data::Refusal(QStringLiteral("نام فايل را با پوشه آن کامل بنويسيد."));
        }
        setModalResult(widgets::mrOk);
    }

    QLineEdit* m_name;
    QLabel* m_note;
};

}  // namespace

QString askPdfName(const QString& suggested) {
    TPdfNameForm form(suggested);
    return form.showModal() == widgets::mrOk ? form.name() : QString();
}

}  // namespace report
