// The payroll options of a company, kept as one text in the suite's settings table.
#pragma once

#include "HostContext.h"

// The payroll options record, in member order.
struct TJFieldLen {
    // Declared lengths of the employees' ledger account columns and of their code.
    qint32 Len_Kol1 = 0;
    qint32 Len_Moein1 = 0;
    qint32 Len_Tafsily1 = 0;
    qint32 Len_Code1 = 0;
    qint32 Rial = 0;
    qint32 Tadil_Mal = 0;
    qint32 HoliDay = 0;
    qint32 KarZero = 0;
    qint32 Karane = 0;
    qint32 MonDays = 0;
    qint32 RozInit = 0;
    qint32 OffType = 0;  // 1: leave is counted in days, 2: otherwise
    qint32 DateShow = 0;
    QString Month_Curent;  // two characters, a leading blank for months 1 to 9
    QString TStart;
    quint8 Minute = 0;    // 0: minutes, 1: otherwise
    quint8 TadilOrd = 0;  // 0: adjusted on current income, 1: otherwise
    double ClockMMon = 0;
    double Clock_Mon = 0;
    double DayClock = 0;  // hours of a working day, the same for everybody
    double OffClock = 0;  // hours of a day of leave
};

// Reads the options of the context's company. Throws data::Refusal, in words that name the option,
// when the company has no options or one of them is missing or no number.
TJFieldLen Load_Pay_Options(data::HostDatabase& db, const data::HostContext& context);
