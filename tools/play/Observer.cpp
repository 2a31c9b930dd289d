#include "Observer.h"

#include <QApplication>
#include <QDesktopServices>
#include <QDialog>
#include <QFile>
#include <QLineEdit>
#include <QMessageBox>
#include <QProgressDialog>
#include <QRegularExpression>
#include <QTimer>

#include "Actor.h"
#include "DlgMsg.h"
#include "Errors.h"
#include "TempGridForm.h"

namespace play {
namespace {

// As texts compare: without letter case, and without the blanks that a statement may have or not.
QString folded(const QString& sql) {
    static const QRegularExpression optional(QStringLiteral(" ?([=<>,()+]) ?"));
    // A row that only its values tell apart is changed as one of those that hold them: no scenario's
    // business.
    return sql.simplified()
        .toLower()
        .replace(QLatin1String(" top (1)"), QString())
        .replace(optional, QStringLiteral("\\1"));
}

// A modal window of Qt's own, open for the operator.
bool waitsAsDialog(const QWidget* widget) {
    const auto* progress = qobject_cast<const QProgressDialog*>(widget);
    if (progress != nullptr && progress->maximum() == 0)
        return false;  // one that waits for the server, which a fast one never shows
    const auto* dialog = qobject_cast<const QDialog*>(widget);
    return dialog != nullptr && dialog->isVisible() && dialog->isModal() &&
           qobject_cast<const QMessageBox*>(widget) == nullptr;
}

}  // namespace

Observer::Observer(Report report) : m_report(std::move(report)) {
    qApp->installEventFilter(this);
    QDesktopServices::setUrlHandler(QStringLiteral("file"), this, "openUrl");
}

Observer::~Observer() {
    QDesktopServices::unsetUrlHandler(QStringLiteral("file"));
}

// --- forms that open ---------------------------------------------------------------------------------

bool Observer::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() != QEvent::Show)
        return false;
    if (auto* box = qobject_cast<QMessageBox*>(watched)) {
        QTimer::singleShot(0, box, [this, box] { confirmBox(box); });
    } else if (auto* form = qobject_cast<widgets::Form*>(watched); form && !m_watched.contains(form)) {
        m_watched.insert(form);
        connect(form, &widgets::Form::modalShown, this, [this, form] { entered(form); });
        connect(form, &QObject::destroyed, this, [this, form] {
            m_watched.remove(form);
            m_entered.remove(form);
        });
    }
    return false;
}

void Observer::entered(widgets::Form* form) {
    if (!form->isModalShown())
        return;
    if (auto* dialog = qobject_cast<TDlgMsg*>(form))
        answerMessage(dialog);
    else if (auto* list = qobject_cast<TTempGridForm*>(form))
        answerPick(list);
    else if (form->className() == QLatin1String("TSelForm") && !files.isEmpty())
        answerFile(form);
    else if (form->className() == QLatin1String("TSeekForm") && !searches.isEmpty())
        answerSearch(form);
    else if (form->className() == QLatin1String("TSieveForm") && !filters.isEmpty())
        answerFilter(form);
    if (form->isModalShown())
        m_entered.insert(form, ++m_opened);
}

int Observer::depth() const {
    int depth = 0;
    for (auto form = m_entered.keyBegin(); form != m_entered.keyEnd(); ++form)
        depth += (*form)->isModalShown() ? 1 : 0;
    for (const QWidget* widget : QApplication::topLevelWidgets())
        depth += waitsAsDialog(widget) ? 1 : 0;
    return depth;
}

int Observer::newest() const {
    int newest = 0;
    for (auto form = m_entered.cbegin(); form != m_entered.cend(); ++form)
        if (form.key()->isModalShown())
            newest = qMax(newest, form.value());
    return newest;
}

void Observer::answerMessage(TDlgMsg* dialog) {
    messages.append({dialog->Memo1->toPlainText(), dialog->code});
    m_entered.remove(dialog);
    if (m_hold) {
        m_hold = false;
        return;
    }
    QList<QPushButton*> shown;
    for (QPushButton* button :
         {dialog->BBtnOK1, dialog->BBtnOK2, dialog->BBtnYes, dialog->BBtnCancel, dialog->BBtnNo})
        if (button->isVisible())
            shown.append(button);
    if (shown.size() < 2) {
        shown.isEmpty() ? Actor::press(dialog, Qt::Key_Escape) : Actor::clickOn(shown.first());
        return;
    }
    const QMap<QString, QList<QPushButton*>> meant = {{"yes", {dialog->BBtnYes}},
                                                      {"no", {dialog->BBtnNo}},
                                                      {"ok", {dialog->BBtnOK2, dialog->BBtnOK1}},
                                                      {"cancel", {dialog->BBtnCancel}}};
    const QString answer = answers.isEmpty() ? QString() : answers.takeFirst();
    for (QPushButton* button : meant.value(answer)) {
        if (shown.contains(button)) {
            Actor::clickOn(button);
            return;
        }
    }
    m_report(answer.isEmpty() ? QStringLiteral("nobody answers the question ") + written(messages.last().text)
                              : written(answer) + QStringLiteral(" is no answer to the question ") +
                                    written(messages.last().text));
    Actor::clickOn(shown.last());
}

void Observer::answerPick(TTempGridForm* form) {
    offered = form->offered();
    if (picks.isEmpty())
        return;
    const std::optional<QString> code = picks.takeFirst();
    if (code && form->choose(*code))
        return;
    if (code)
        m_report(QStringLiteral("expected the pick list to offer ") + written(*code) +
                 QStringLiteral(" but found ") + written(offered.join(u' ')));
    form->setModalResult(widgets::mrCancel);
}

void Observer::answerFile(widgets::Form* form) {
    const FileAnswer answer = files.takeFirst();
    const bool cancels = answer.name.isEmpty();
    if (auto* name = form->component<QLineEdit>(QStringLiteral("FlopyEdit")); name && !cancels) {
        form->setProperty("folder", answer.folder);
        name->setText(answer.name);
    }
    const QString button = cancels ? QStringLiteral("CancelBitBtn") : QStringLiteral("OkBitBtn");
    if (auto* pressed = form->component<QWidget>(button))
        Actor::clickOn(pressed);
}

void Observer::answerSearch(widgets::Form* form) {
    auto* text = form->component<QLineEdit>(QStringLiteral("SearchEdit"));
    auto* find = form->component<QWidget>(QStringLiteral("FindNextBtn"));
    if (text && find) {
        text->setText(searches.takeFirst());
        Actor::clickOn(find);
    }
    form->setModalResult(widgets::mrOk);
}

// What the filter library answers is the form's property, whoever put it there.
void Observer::answerFilter(widgets::Form* form) {
    const QString statement = filters.takeFirst();
    form->setProperty("Answer", statement);
    form->setModalResult(statement.isEmpty() ? widgets::mrCancel : widgets::mrOk);
}

void Observer::confirmBox(QMessageBox* box) {
    messages.append({box->text(), {}});
    if (QAbstractButton* button = box->buttons().value(0))
        Actor::clickOn(button);
    else
        box->close();
}

void Observer::openUrl(const QUrl& url) {
    opened.append(url.toLocalFile());
}

// --- statements --------------------------------------------------------------------------------------

void Observer::statement(const QString& sql) {
    if (m_unseen > 0)
        return;
    m_statements.append(folded(sql));
    if (!m_sqlLog.isEmpty()) {
        QFile log(m_sqlLog);
        if (log.open(QIODevice::Append))
            log.write(sql.simplified().toUtf8() + '\n');
    }
    const bool counted = m_faultCount > 0 && --m_faultCount == 0;
    const bool named = !m_faultPart.isEmpty() && m_statements.last().contains(m_faultPart);
    if (named)
        m_faultPart.clear();
    if (counted || named)
        m_trouble();
}

bool Observer::wasSent(const QString& part) const {
    const QString wanted = folded(part);
    return std::any_of(m_statements.begin(), m_statements.end(),
                       [&](const QString& statement) { return statement.contains(wanted); });
}

void Observer::forget() {
    messages.clear();
    m_statements.clear();
}

void Observer::failAt(int count, const Trouble& trouble) {
    failNone();
    m_faultCount = count;
    m_trouble = trouble;
}

void Observer::failOn(const QString& part, const Trouble& trouble) {
    failNone();
    m_faultPart = folded(part);
    m_trouble = trouble;
}

void Observer::failNone() {
    m_faultCount = 0;
    m_faultPart.clear();
}

}  // namespace play
