#include "Formpay.h"

namespace forms {

const PageLayout& formpay() {
    static const PageLayout layout = {
        QStringLiteral("TFormpay"),
        QStringLiteral("معرفي مشخصات حقوق "),
        QStringLiteral("dbgMozd"),
        QStringLiteral("OkBtn"),
        QStringLiteral("تاييد"),
        {
            codeColumn("كد", 25, " کد مولفه حقوق وارد گردد"),
            nameColumn("نام حقوق و مزايا", 188, " نام مولفه حقوق وارد گردد"),
            untotalled(numberColumn("Fieldlen", "طول ", 28, " حداکثر ارقام {D} به عنوان طول وارد گردد ")),
            markColumn("Malyat", "ماليات", 38, " در صورت ماليات پذير بودن {D} علامت دار گردد "),
            markColumn("Bimeh", "بيمه", 28, " در صورت بيمه پذير بودن {D} علامت دار گردد "),
            markColumn("Mah", "روزهاي ماه", 67,
                       " در صورتيکه سقف مبلغ پرداختي {D} ثابت مي باشد علامت دار گردد "),
            markColumn("No_mal", "معافيت مالياتي ", 90,
                       " در صورتيکه به{D} معافيت مالياتي تعلق مي گيرد علامت دار گردد ", "Perc_mal",
                       "        معافيت مالياتي        "),
            markColumn("Mosaede", "مساعده", 51,
                       " در صورتيکه مبناي مشخصي از {D} براي تعيين مساعده وجود داردعلامت دار گردد ",
                       "Perc_mos", "      تعيين مبلغ مساعده        "),
            markColumn("Mozd", "مرخصي", 49,
                       " در صورتيکه مرخصي استفاده شده بابت {D} پرداخت نمي گردد اين ستون علامت دار گردد "),
            markColumn("Basefish", "دستمزدفيش", 74,
                       " در صورتيکه {D} مبناي دستمزد فيش حقوق است علامت دار گردد "),
            markColumn("Basemozd", "مزد روزانه", 54,
                       " در صورتيکه {D} مبناي تعيين دستمزد روزانه گزارش بيمه است علامت دار گردد "),
            markColumn("Suboff", "كسرمازاد", 55,
                       " در صورتيکه مرخصي مازاد استفاده شده از {D} کسر مي گردد علامت دار گردد"),
            markColumn("Payfix", "مبلغ ثابت", 64,
                       " در صورتيکه {D} ماهيانه به شكل ثابت پرداخت مي شود علامت دار گردد "),
        }};
    return layout;
}

}  // namespace forms
