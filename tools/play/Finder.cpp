#include "Finder.h"

#include <QAbstractButton>
#include <QApplication>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QTabWidget>

#include "Components.h"
#include "Script.h"
#include "Stage.h"

namespace play {
namespace {

widgets::Form* formOfClass(const QString& className) {
    widgets::Form* hidden = nullptr;
    for (QWidget* widget : QApplication::allWidgets()) {
        auto* form = qobject_cast<widgets::Form*>(widget);
        if (form == nullptr || form->className() != className)
            continue;
        if (form->isVisible())
            return form;
        hidden = form;
    }
    return hidden;
}

QTabWidget* tabsOf(QWidget* sheet) {
    for (QWidget* parent = sheet->parentWidget(); parent != nullptr; parent = parent->parentWidget())
        if (auto* tabs = qobject_cast<QTabWidget*>(parent))
            return tabs->indexOf(sheet) < 0 ? nullptr : tabs;
    return nullptr;
}

QTableView* firstTable(const widgets::Form* form) {
    const auto tables = form->findChildren<QTableView*>();
    for (QTableView* table : tables)
        if (table->isVisible())
            return table;
    return tables.value(0);
}

}  // namespace

widgets::Form* Finder::modal() const {
    for (widgets::Form* form : widgets::Form::frontToBack())
        if (form->isModalShown())
            return form;
    return nullptr;
}

QList<widgets::Form*> Finder::searched() const {
    QList<widgets::Form*> forms;
    if (widgets::Form* active = modal())
        forms.append(active);
    for (widgets::Form* form : widgets::Form::frontToBack()) {
        if (form->isModalShown() || form == m_stage.window())
            continue;
        forms.append(form);
        break;
    }
    if (m_stage.window() != nullptr)
        forms.append(m_stage.window());
    return forms;
}

widgets::Form* Finder::front() const {
    const auto forms = searched();
    if (forms.isEmpty())
        throw Failure{QStringLiteral("no form is shown")};
    return forms.first();
}

widgets::Form* Finder::window() const {
    if (m_stage.window() == nullptr)
        throw Failure{QStringLiteral("the base-information window is not shown")};
    return m_stage.window();
}

QWidget* Finder::component(const QString& name) const {
    const auto forms = searched();
    for (widgets::Form* form : forms) {
        if (form->objectName() == name)
            return form;
        if (auto* widget = form->component<QWidget>(name))
            return widget;
    }
    if (const qsizetype dot = name.indexOf(u'.'); dot > 0) {
        widgets::Form* form = formOfClass(name.left(dot));
        if (form == nullptr)
            throw Failure{QStringLiteral("there is no form ") + name.left(dot)};
        if (auto* widget = form->component<QWidget>(name.mid(dot + 1)))
            return widget;
    }
    if (!forms.isEmpty())
        for (auto* button : forms.first()->findChildren<QAbstractButton*>())
            if (comparable(plain(button->text())) == comparable(plain(name)))
                return button;
    if (widgets::Form* form = formOfClass(name))
        return form;
    throw Failure{QStringLiteral("nothing is named ") + written(name)};
}

QTableView* Finder::table(const QString& name) const {
    auto* table =
        name == QLatin1String(".") ? firstTable(front()) : qobject_cast<QTableView*>(component(name));
    if (table == nullptr)
        throw Failure{name + QStringLiteral(" is no grid")};
    return table;
}

widgets::DataGrid* Finder::grid(const QString& name) const {
    auto* grid = qobject_cast<widgets::DataGrid*>(table(name));
    if (grid == nullptr)
        throw Failure{name + QStringLiteral(" is no data grid")};
    return grid;
}

QString Finder::caption(QWidget* widget) {
    if (auto* panel = qobject_cast<widgets::Panel*>(widget))
        return panel->caption();
    if (auto* button = qobject_cast<QAbstractButton*>(widget))
        return button->text();
    if (auto* label = qobject_cast<QLabel*>(widget))
        return label->text();
    if (auto* box = qobject_cast<QGroupBox*>(widget))
        return box->title();
    if (auto* edit = qobject_cast<QLineEdit*>(widget))
        return edit->text();
    if (auto* edit = qobject_cast<QPlainTextEdit*>(widget))
        return edit->toPlainText();
    if (auto* combo = qobject_cast<QComboBox*>(widget))
        return combo->currentText();
    if (QTabWidget* tabs = tabsOf(widget))
        return tabs->tabText(tabs->indexOf(widget));
    return widget->windowTitle();
}

QString Finder::plain(const QString& caption) {
    QString result = caption;
    return result.remove(u'&').trimmed();
}

bool Finder::usable(const QWidget* widget) {
    if (!widget->isVisible() || !widget->isEnabled())
        return false;
    const QWidget* modal = QApplication::activeModalWidget();
    return modal == nullptr || modal == widget || modal->isAncestorOf(widget);
}

}  // namespace play
