// What the two purchase pages have in common: one row for each salary item of the month, which are made
// anew when the items have become more or fewer, and when the operator asks for it.
#pragma once

#include "DefinitionPage.h"

namespace payitems {

definition::PageDefinition purchasePage(const forms::PageLayout& layout, const QString& table,
                                        const QString& pageKey, const QString& reportTitle);

class PurchasePage : public definition::DefinitionPage {
public:
    using DefinitionPage::DefinitionPage;

    // Makes the rows anew; asks first where marks or numbers would be lost.
    void ConfirmPage() override;

protected:
    void openData() override;
    void reopenData() override;

private:
    bool itemsChanged();
    bool hasEntries();
    void followItems();
    void makeRows();
};

}  // namespace payitems
