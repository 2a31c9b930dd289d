// The suite's colour scheme, read anew whenever a form is shown, and the shape of borderless windows.
#pragma once

#include "DataGrid.h"
#include "Form.h"
#include "HostContext.h"

// Applies the colours of "Data/OptionsColor.ini" under the installation folder to a form and its
// components, and keeps the two title colours in the context. A colour that cannot be read is told
// once and its default used, so that a bad file never keeps a page from opening.
void Set_Form_Colors(data::HostContext& context, widgets::Form& form);

// Rounded corners, for as much of the form as the rectangle holds.
void Set_Round_Region(const QRect& rect, widgets::Form& form);

// A colour by its constant name ("clBtnFace") or as 0x with eight digits: zero, blue, green, red.
// Invalid where it is neither.
QColor Color_From_Text(const QString& text);

// Orders a grid's dataset by a column and marks its title; -1 only takes the marks away.
bool Sort_By_Column(const data::HostContext& context, data::Dataset& dataSet, widgets::DataGrid& grid,
                    int columnIndex);
