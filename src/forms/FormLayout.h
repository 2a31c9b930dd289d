// What a form holds, as data: its components in the order in which they are made.
#pragma once

#include <QList>
#include <QRect>
#include <QString>
#include <QStringList>

#include "AlignLayout.h"
#include "Form.h"

namespace forms {

enum class Kind {
    Panel,
    RaisedPanel,
    LoweredPanel,
    CaptionBar,
    Shape,
    CloseButton,
    MinimizeButton,
    Button,
    Label,
    Edit,
    CheckBox,
    RadioButton,
    Group,
    Combo,
    List,
    Tree,
    Grid,
    Image
};

struct Component {
    Kind kind;
    QString name;
    QString parent;  // name of the component that holds it; empty for the form itself
    Align align = Align::None;
    QRect place;  // design place; an aligned component uses the sizes it keeps
    QString caption;
    QString hint;
};

// Makes the components inside `root` (the form, or a sheet of it), named and laid out.
void buildComponents(QWidget& root, const QList<Component>& components);

// The captions and design size of a form besides its components.
struct FormLayout {
    QString className;
    QString caption;
    QSize size;
    QList<Component> components;
};

}  // namespace forms
