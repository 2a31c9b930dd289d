#include "Progress.h"

#include <QCoreApplication>
#include <QProgressDialog>

#include "Errors.h"
#include "Form.h"
#include "Step.h"

namespace widgets {
namespace {

int patience = 500;           // milliseconds before anything is shown
constexpr int kLook = 50;     // milliseconds between two looks at the operator's mouse and keys
constexpr int kSteps = 1000;  // of the bar

QList<Progress*>& underWay() {
    static QList<Progress*> all;
    return all;
}

}  // namespace

Progress::Progress(const QString& what, qint64 total) : m_what(what), m_total(total) {
    m_clock.start();
    underWay().append(this);
}

Progress::~Progress() {
    underWay().removeOne(this);
    delete m_dialog;
    if (m_frozen)
        m_frozen->setUpdatesEnabled(true);
}

void Progress::show() {
    QWidget* below = Form::front() ? Form::front()->window() : nullptr;
    m_dialog = new QProgressDialog(m_what, QStringLiteral("انصراف"), 0, m_total > 0 ? kSteps : 0, below);
    m_dialog->setObjectName(QStringLiteral("ProgressForm"));
    m_dialog->setLayoutDirection(Qt::RightToLeft);
    m_dialog->setWindowModality(Qt::ApplicationModal);
    m_dialog->setAutoClose(false);
    m_dialog->setAutoReset(false);
    m_dialog->setMinimumDuration(0);
    m_dialog->show();
    // The step may be reading from the connection that a repainted grid would read from too.
    if (below && below->updatesEnabled()) {
        m_frozen = below;
        below->setUpdatesEnabled(false);
    }
}

void Progress::advance(qint64 done) {
    m_done = done;
    const qint64 now = m_clock.elapsed();
    if (now < m_nextLook)
        return;
    m_nextLook = now + kLook;
    if (now < patience)
        return;
    if (!m_dialog)
        show();
    {
        const Pause pause;
        if (m_total > 0)
            m_dialog->setValue(static_cast<int>(done * kSteps / m_total));
        QCoreApplication::processEvents();
    }
    Step::goOn();
    if (m_givenUp || !m_dialog || m_dialog->wasCanceled())
        throw data::SilentAbort();
}

void Progress::setPatience(int milliseconds) {
    patience = milliseconds;
}

Progress* Progress::newest() {
    return underWay().isEmpty() ? nullptr : underWay().last();
}

void Progress::giveUpAll() {
    for (Progress* progress : underWay())
        progress->m_givenUp = true;
}

}  // namespace widgets
