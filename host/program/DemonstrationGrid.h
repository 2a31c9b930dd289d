// A table of the company in a window of its own, with everything that the grid's menu can offer: pages
// leave some of it out. What is changed here is stored at once.
#pragma once

#include "DialogForm.h"
#include "HostObjects.h"
#include "Malyobjectunit.h"

namespace host {

class DemonstrationGrid : public forms::DialogForm {
public:
    // The objects must outlive the window. It speaks through them, as the module does.
    explicit DemonstrationGrid(HostObjects& objects);
    ~DemonstrationGrid() override;

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    void open();
    void BuildPopup();

    data::Dataset m_rows;
    widgets::DataGrid* m_grid;
    TMalyObject m_services;
};

}  // namespace host
