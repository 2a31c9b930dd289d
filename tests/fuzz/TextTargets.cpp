// Texts that the company or the installation keeps: options, rights, detail lists, settings; and scenarios.
#include <QApplication>
#include <QDir>
#include <QTemporaryDir>
#include <cmath>

#include "CodePage.h"
#include "Errors.h"
#include "FormLook.h"
#include "FuzzTargets.h"
#include "PayOptions.h"
#include "Query.h"
#include "ReportProperties.h"
#include "Script.h"
#include "ShareList.h"
#include "SmallCompany.h"
#include "TextHelpers.h"
#include "UserRights.h"

namespace fuzz {
namespace {

void write(const QString& path, const QByteArray& bytes) {
    QFile file(path);
    require(file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size(), "the file is written");
}

}  // namespace

void options(const QByteArray& input) {
    SmallCompany& company = SmallCompany::instance();
    QString text = QString::fromUtf8(input);
    answered([&] {
        text = data::foldToCodePage(text);
        company.run("update Options set Payment=" + data::quoted(text) +
                    " update UserSdc set KAVESTA=" + data::quoted(text));
        answered([&] { Load_User_Rights(company.database(), company.context()); });
        const TJFieldLen record = Load_Pay_Options(company.database(), company.context());
        require(record.Month_Curent.size() == 2, "a month of two characters");
    });
    // What is set is found again, and nothing else is changed.
    const QString key = QStringLiteral("KEY"),
                  value = QString::fromUtf8(input.left(8)).remove(u';').toUpper();
    const QString with = Set_Param(text, key, value);
    require(Get_Param(with, key) == value, "set and found");
    require(Set_Param(with, key, value) == with, "set twice");
}

void details(const QByteArray& input) {
    const QString list = QString::fromUtf8(input);
    const auto shares = definition::parseItemShares(list);
    const QString same = definition::renumberShares(list, [](qint64 code) { return code; });
    require(same == list, "nothing moves");
    const QString moved = definition::renumberShares(list, [](qint64 code) {
        return code == 1 ? 2 : code == 2 ? 1 : code;
    });
    if (!shares) {
        require(moved == list, "no list, no change");
        return;
    }
    if (std::any_of(shares->begin(), shares->end(), [](const auto& share) { return share.code == 0; }))
        return;  // no item has it
    const auto again = definition::parseItemShares(moved);
    require(again && again->size() == shares->size(), "as many shares");
    for (qsizetype i = 0; i < shares->size(); ++i)
        require(std::isfinite((*shares)[i].share) && (*again)[i].text == (*shares)[i].text,
                "the same shares");
    definition::renumberShares(list, [](qint64) { return 0; });
}

void settings(const QByteArray& input) {
    static const QTemporaryDir folder;
    static const bool made = QDir(folder.path()).mkpath(QStringLiteral("Data"));
    require(made, "a folder");
    for (const char* file : {"OptionsColor.ini", "Reports.ini"})
        write(folder.filePath(QStringLiteral("Data/") + QLatin1String(file)), input);
    data::HostContext context;
    context.Install_Dir = folder.path();
    const Overheard overheard;
    answered([&] {
        widgets::Form form("TTestForm");
        Set_Form_Colors(context, form);
    });
    answered([&] {
        const report::ReportProperties read =
            report::readProperties(folder.path(), QStringLiteral("J_BASE_Paymozd_1"));
        require(report::faultOf(read).part == report::Part::None, "what is read can be used");
    });
}

void scenario(const QByteArray& input) {
    static const QTemporaryDir folder;
    const QString file = folder.filePath(QStringLiteral("a.play"));
    write(file, input);
    try {
        for (const play::Line& line : play::Script::read(file).lines)
            require(line.number > 0, "a line has its number");
    } catch (const play::Failure&) {
    }
    const QString text = QString::fromUtf8(input);
    play::comparable(text);
    play::written(text);
}

}  // namespace fuzz
