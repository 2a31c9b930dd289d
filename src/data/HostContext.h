// The objects that the host hands to the module on every call. They are the host's own live objects,
// used directly and never copied; the module writes only the rights and the two title colours.
#pragma once

#include <QString>

namespace data {

class Connection;
class Query;

// What the host knows of the user, the company and the machine.
struct HostContext {
    // Title colours of data grids as 0x00RRGGBB, filled by the form colour scheme.
    quint32 Title_Color = 0x000000;
    quint32 Sorted_Title_Color = 0xFF0000;

    qint32 UserId = 0;
    // Together the company's key in `Options`.
    QString SCode_1;
    QString SCode_2;
    // Begins the name of every work table that the module makes in the company's database.
    QString Temp_Prefix;
    // Installation folder, without a trailing separator.
    QString Install_Dir;
    // Jalali, "year/month/day".
    QString Current_Date;
    QString Platform;
    // "WIN" where the keyboard driver already types the Persian letters of Windows-1256.
    QString Keyboard;
    // Whether grids may open context menus.
    bool Popups_Allowed = true;

    // Filled by Load_User_Rights.
    QString Copy_Right;
    QString Print_Right;
    QString Report_Right;
};

// The host's date object; handed on, never read by the module.
struct HostDate {};

// The company's database: one connection, and one scratch query shared by all helpers. Helpers do
// not nest: the next one discards what the last one read.
struct HostDatabase {
    data::Query* Query = nullptr;
    data::Connection* Connection = nullptr;
};

}  // namespace data
