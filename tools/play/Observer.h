// Watches what the module does while a scenario plays (messages, pick lists, statements, files it
// opens), answers for the operator, and lets statements fail on demand.
#pragma once

#include <QSet>
#include <QUrl>
#include <functional>
#include <optional>

#include "Form.h"
#include "Script.h"

class QMessageBox;
class TDlgMsg;
class TTempGridForm;

namespace play {

class Observer : public QObject {
    Q_OBJECT

public:
    // A message as it was shown, with the code that chose its buttons.
    struct Message {
        QString text, code;
    };
    // What the file window is answered with.
    struct FileAnswer {
        QString folder, name;  // an absolute folder; both empty to give up
    };
    using Report = std::function<void(const QString& trouble)>;

    explicit Observer(Report report);
    ~Observer() override;

    // --- answers that wait for their dialog -------------------------------------------------------
    QStringList answers;                  // yes, no, ok, cancel
    QList<std::optional<QString>> picks;  // a code; no value to give up
    QList<FileAnswer> files;
    QStringList searches, filters;
    // The next message stays open.
    void holdNextMessage() { m_hold = true; }

    // --- what has been seen -----------------------------------------------------------------------
    QList<Message> messages;  // not expected yet, the oldest first
    QStringList offered;      // by the last pick list
    QStringList opened;       // files, not expected yet
    // Whether a statement with the text was sent since the last forget.
    bool wasSent(const QString& part) const;
    // How many were sent since then.
    qsizetype trips() const { return m_statements.size(); }
    void forget();

    // --- statements -------------------------------------------------------------------------------
    // Every statement before it is sent; throws data::ServerError where one must fail.
    void statement(const QString& sql);
    void setSqlLog(const QString& file) { m_sqlLog = file; }
    // The count-th statement from now fails; the next that holds the text does; none does. Each takes back
    // what was asked for before.
    using Trouble = std::function<void()>;  // throws, as a rule
    void failAt(int count, const Trouble& trouble);
    void failOn(const QString& part, const Trouble& trouble);
    void failNone();
    // The scenario's own statements go unseen while this lives.
    class Unseen {
    public:
        explicit Unseen(Observer& observer) : m_observer(observer) { ++m_observer.m_unseen; }
        ~Unseen() { --m_observer.m_unseen; }
        Unseen(const Unseen&) = delete;
        Unseen& operator=(const Unseen&) = delete;

    private:
        Observer& m_observer;
    };

    // Modal forms and dialogs whose loop waits for the operator.
    int depth() const;
    // Number of the modal form opened last of those that are open; they count from 1.
    int newest() const;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private Q_SLOTS:
    void openUrl(const QUrl& url);

private:
    void entered(widgets::Form* form);
    void answerMessage(TDlgMsg* dialog);
    void answerPick(TTempGridForm* form);
    void answerFile(widgets::Form* form);
    void answerSearch(widgets::Form* form);
    void answerFilter(widgets::Form* form);
    void confirmBox(QMessageBox* box);

    Report m_report;
    QSet<widgets::Form*> m_watched;
    QHash<widgets::Form*, int> m_entered;  // forms whose modal loop runs, by the order of their opening
    int m_opened = 0;
    bool m_hold = false;
    QStringList m_statements;  // folded
    QString m_sqlLog;
    int m_unseen = 0;
    int m_faultCount = 0;
    QString m_faultPart;
    Trouble m_trouble;
};

}  // namespace play
