#include "CompanyProcedures.h"

#include "Connection.h"
#include "Name.h"
#include "ServerText.h"

namespace tsql {
namespace {

struct Procedure {
    QString name;
    QStringList parameters;
    QString (*body)(const QStringList& arguments);
};

// A name repeats another when nothing but blanks and kashida sets them apart.
QString nameRepeated(const QStringList& arguments) {
    const QString bare = QStringLiteral("Replace(Replace(%1, ' ', ''), '\u0640', '')");
    const QString column = data::bracketed(arguments[1]);
    return QStringLiteral("Select ") + column + QStringLiteral(" From ") + data::bracketed(arguments[0]) +
           QStringLiteral(" Where ") + bare.arg(column) + QStringLiteral(" = ") +
           bare.arg(data::quoted(arguments[2]));
}

QString centresOfGroup(const QStringList& arguments) {
    const QString code = data::quoted(arguments[0]);
    return QStringLiteral("Select Count(*) As Dependants From Tafsily2 Where Left(Tafsily2, Len(") + code +
           QStringLiteral(")) = ") + code;
}

const QList<Procedure>& procedures() {
    static const QList<Procedure> list = {
        {QStringLiteral("sp_Is_Name_Repeated"),
         {QStringLiteral("@Table"), QStringLiteral("@Column"), QStringLiteral("@Value")},
         nameRepeated},
        {QStringLiteral("sp_M_Depended_GrohTafsily2"), {QStringLiteral("@Code")}, centresOfGroup},
    };
    return list;
}

}  // namespace

const QStringList& companyProcedureNames() {
    static const QStringList names = [] {
        QStringList result;
        for (const Procedure& procedure : procedures())
            result.append(procedure.name);
        return result;
    }();
    return names;
}

std::optional<QString> companyProcedure(QStringView name, const QStringList& arguments) {
    for (const Procedure& procedure : procedures()) {
        if (!sameName(procedure.name, name))
            continue;
        if (arguments.size() > procedure.parameters.size())
            refuse(u"Procedure or function %1 has too many arguments specified.", procedure.name);
        if (arguments.size() < procedure.parameters.size())
            refuse(u"Procedure or function '%1' expects parameter '%2', which was not supplied.",
                   procedure.name, procedure.parameters[arguments.size()]);
        return procedure.body(arguments);
    }
    return std::nullopt;
}

}  // namespace tsql
