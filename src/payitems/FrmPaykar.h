// Non-continuous benefits: items paid or deducted occasionally, each added to or taken from what an
// employee receives.
#pragma once

#include "DefinitionPage.h"

namespace payitems {

const definition::PageDefinition& frmPaykar();

class TFrmPaykar : public definition::DefinitionPage {
    Q_OBJECT

public:
    using DefinitionPage::DefinitionPage;

protected:
    // An item is either deducted or added.
    void CheckRow() override;
};

}  // namespace payitems
