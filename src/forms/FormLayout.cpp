#include "FormLayout.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>
#include <QTreeWidget>

#include "Components.h"
#include "DataGrid.h"

namespace forms {
namespace {

template <class Button>
QWidget* captioned(const Component& component, QWidget* parent) {
    auto* button = new Button(component.caption, parent);
    button->setFont(widgets::formFont());
    return button;
}

QWidget* panel(const Component& component, widgets::Panel::Bevel bevel, QWidget* parent) {
    auto* panel = new widgets::Panel(parent);
    panel->setBevel(bevel);
    panel->setCaption(component.caption);
    return panel;
}

QWidget* speedButton(widgets::SpeedButton::Glyph glyph, QWidget* parent) {
    auto* button = new widgets::SpeedButton(parent);
    button->setGlyph(glyph);
    return button;
}

QWidget* make(const Component& component, QWidget* parent) {
    using widgets::Panel;
    using widgets::SpeedButton;
    switch (component.kind) {
        case Kind::Panel:
            return panel(component, Panel::Bevel::None, parent);
        case Kind::RaisedPanel:
            return panel(component, Panel::Bevel::Raised, parent);
        case Kind::LoweredPanel:
            return panel(component, Panel::Bevel::Lowered, parent);
        case Kind::CaptionBar: {
            auto* bar = new widgets::CaptionBar(parent);
            bar->setCaption(component.caption);
            return bar;
        }
        case Kind::Shape:
            return new widgets::Shape(parent);
        case Kind::CloseButton:
            return speedButton(SpeedButton::Glyph::Close, parent);
        case Kind::MinimizeButton:
            return speedButton(SpeedButton::Glyph::Minimize, parent);
        case Kind::Button:
            return captioned<QPushButton>(component, parent);
        case Kind::Label:
        case Kind::Image:
            return captioned<QLabel>(component, parent);
        case Kind::Edit:
            return captioned<QLineEdit>(component, parent);
        case Kind::CheckBox:
            return captioned<QCheckBox>(component, parent);
        case Kind::RadioButton:
            return captioned<QRadioButton>(component, parent);
        case Kind::Group:
            return captioned<QGroupBox>(component, parent);
        case Kind::Combo: {
            auto* combo = new QComboBox(parent);
            combo->setFont(widgets::formFont());
            return combo;
        }
        case Kind::List: {
            auto* list = new QListWidget(parent);
            list->setFont(widgets::formFont());
            return list;
        }
        case Kind::Tree: {
            auto* tree = new QTreeWidget(parent);
            tree->setFont(widgets::formFont());
            tree->setHeaderHidden(true);
            tree->setRootIsDecorated(false);
            tree->setItemsExpandable(false);
            return tree;
        }
        case Kind::Grid:
            return new widgets::DataGrid(parent);
    }
    return nullptr;
}

}  // namespace

void buildComponents(QWidget& root, const QList<Component>& components) {
    for (const Component& component : components) {
        QWidget* parent = component.parent.isEmpty() ? &root : root.findChild<QWidget*>(component.parent);
        QWidget* widget = make(component, parent);
        widget->setObjectName(component.name);
        widget->setToolTip(component.hint);
        widget->setGeometry(component.place);
        auto* layout = static_cast<AlignLayout*>(parent->layout());
        if (!layout)
            layout = new AlignLayout(parent);
        layout->add(widget, component.align);
    }
}

}  // namespace forms
