#include "ReportProperties.h"

#include <QDir>
#include <QRectF>
#include <QSaveFile>
#include <QSettings>
#include <algorithm>

#include "Errors.h"
#include "SettingsSize.h"

namespace report {
namespace {

constexpr qreal kWidestMargin = 100;  // millimetres
constexpr qreal kLeastRoom = 40;      // millimetres between two margins
constexpr int kLongestTitle = 120;

QString fileOf(const QString& installDir) {
    return QDir(installDir).filePath(QStringLiteral("Data/Reports.ini"));
}

// A group of the file; a key may hold what its format takes for a separator.
QString groupOf(const QString& gridKey) {
    return QString(gridKey).replace(u'/', u'_').replace(u'\\', u'_');
}

bool between(qreal value, qreal least, qreal most) {
    return value >= least && value <= most;
}

QString marginFault(const ReportProperties& properties) {
    const QMarginsF& margins = properties.margins;
    for (const qreal margin : {margins.left(), margins.top(), margins.right(), margins.bottom()})
        if (!between(margin, 0, kWidestMargin))
            return QStringLiteral("حاشيه بايد از 0 تا %1 ميليمتر باشد.").arg(kWidestMargin);
    const QSizeF paper = pageLayout(properties).fullRect(QPageLayout::Millimeter).size();
    const bool wide = margins.left() + margins.right() + kLeastRoom > paper.width();
    const bool high = margins.top() + margins.bottom() + kLeastRoom > paper.height();
    if (wide || high)
        return QStringLiteral("با اين حاشيه ها جايي براي چاپ روي کاغذ نمي ماند.");
    return {};
}

}  // namespace

const QList<Paper>& papers() {
    static const QList<Paper> list = {
        {"A3", "A3", QPageSize::A3},         {"A4", "A4", QPageSize::A4},
        {"A5", "A5", QPageSize::A5},         {"B4", "B4", QPageSize::B4},
        {"B5", "B5", QPageSize::B5},         {"Letter", "Letter", QPageSize::Letter},
        {"Legal", "Legal", QPageSize::Legal}};
    return list;
}

QPageLayout pageLayout(const ReportProperties& properties) {
    const auto paper = std::find_if(papers().begin(), papers().end(),
                                    [&](const Paper& each) { return each.key == properties.paper; });
    return {QPageSize(paper == papers().end() ? QPageSize::A4 : paper->size),
            properties.landscape ? QPageLayout::Landscape : QPageLayout::Portrait, QMarginsF()};
}

Fault faultOf(const ReportProperties& properties) {
    const auto known = [&](const Paper& each) { return each.key == properties.paper; };
    if (properties.title.size() > kLongestTitle)
        return {Part::Title, QStringLiteral("عنوان از %1 نويسه بيشتر است.").arg(kLongestTitle)};
    if (std::none_of(papers().begin(), papers().end(), known))
        return {Part::Paper, QStringLiteral("اندازه کاغذ شناخته نيست.")};
    if (const QString sentence = marginFault(properties); !sentence.isEmpty())
        return {Part::Margins, sentence};
    if (properties.family.trimmed().isEmpty())
        return {Part::Family, QStringLiteral("نام قلم خالي است.")};
    if (!between(properties.titleSize, 8, 36))
        return {Part::TitleSize, QStringLiteral("اندازه قلم عنوان بايد از 8 تا 36 باشد.")};
    if (!between(properties.bodySize, 6, 20))
        return {Part::BodySize, QStringLiteral("اندازه قلم متن بايد از 6 تا 20 باشد.")};
    return {};
}

ReportProperties readProperties(const QString& installDir, const QString& gridKey) {
    ReportProperties result;
    if (installDir.isEmpty() || gridKey.isEmpty())
        return result;
    data::requireSettingsSize(fileOf(installDir));
    QSettings file(fileOf(installDir), QSettings::IniFormat);
    file.beginGroup(groupOf(gridKey));
    const auto take = [&](const auto& change) {
        ReportProperties changed = result;
        if (change(changed) && faultOf(changed).part == Part::None)
            result = changed;
    };
    const auto text = [&](const char* key, QString& value) {
        const QVariant stored = file.value(QLatin1String(key));
        value = stored.toString().trimmed();
        return stored.isValid();
    };
    const auto flag = [&](const char* key, bool& value) {
        const QString stored = file.value(QLatin1String(key)).toString().trimmed().toLower();
        const bool known = stored == QStringLiteral("true") || stored == QStringLiteral("false");
        if (known)
            value = stored == QStringLiteral("true");
        return known;
    };
    const auto number = [&](const char* key, auto&& set) {
        bool good = false;
        const double value = file.value(QLatin1String(key)).toString().trimmed().toDouble(&good);
        // What no property can be is out of an integer's range as well.
        good = good && between(value, -kWidestMargin, 10 * kWidestMargin);
        if (good)
            set(value);
        return good;
    };
    take([&](ReportProperties& p) { return text("Title", p.title); });
    // The orientation first: margins are judged by it.
    take([&](ReportProperties& p) { return text("Paper", p.paper); });
    take([&](ReportProperties& p) { return flag("Landscape", p.landscape); });
    take([&](ReportProperties& p) { return number("LeftMargin", [&](qreal v) { p.margins.setLeft(v); }); });
    take([&](ReportProperties& p) { return number("TopMargin", [&](qreal v) { p.margins.setTop(v); }); });
    take([&](ReportProperties& p) { return number("RightMargin", [&](qreal v) { p.margins.setRight(v); }); });
    take([&](ReportProperties& p) {
        return number("BottomMargin", [&](qreal v) { p.margins.setBottom(v); });
    });
    take([&](ReportProperties& p) { return text("Font", p.family); });
    take([&](ReportProperties& p) { return number("TitleSize", [&](qreal v) { p.titleSize = qRound(v); }); });
    take([&](ReportProperties& p) { return number("BodySize", [&](qreal v) { p.bodySize = qRound(v); }); });
    take([&](ReportProperties& p) { return flag("ShadedRows", p.shadedRows); });
    take([&](ReportProperties& p) { return flag("RowNumbers", p.rowNumbers); });
    take([&](ReportProperties& p) { return flag("Totals", p.totals); });
    return result;
}

void storeProperties(const QString& installDir, const QString& gridKey, const ReportProperties& properties) {
    if (const Fault fault = faultOf(properties); fault.part != Part::None)
        throw data::Refusal(fault.sentence);
    if (installDir.isEmpty() || gridKey.isEmpty())
        throw data::Refusal(
            QStringLiteral("اين گزارش کليدي ندارد که مشخصات آن با آن نگه داري شود. مشخصات ثبت نشد."));
    const QString name = fileOf(installDir);
    const auto refuse = [&] {
        throw data::Refusal(
            QStringLiteral(
                "مشخصات گزارش در فايل %1 نوشته نشد و آنچه بود تغييري نکرد. دسترسي به اين فايل را بررسي کنيد.")
                .arg(data::pathInText(QDir::toNativeSeparators(name))));
    };
    // Tried first: settings that could not be written would live on in the memory of this program.
    QDir(installDir).mkpath(QStringLiteral("Data"));
    if (QSaveFile probe(name); !probe.open(QIODevice::WriteOnly))
        refuse();
    QSettings file(name, QSettings::IniFormat);
    file.beginGroup(groupOf(gridKey));
    file.setValue("Title", properties.title.trimmed());
    file.setValue("Paper", properties.paper);
    file.setValue("Landscape", properties.landscape);
    file.setValue("LeftMargin", properties.margins.left());
    file.setValue("TopMargin", properties.margins.top());
    file.setValue("RightMargin", properties.margins.right());
    file.setValue("BottomMargin", properties.margins.bottom());
    file.setValue("Font", properties.family.trimmed());
    file.setValue("TitleSize", properties.titleSize);
    file.setValue("BodySize", properties.bodySize);
    file.setValue("ShadedRows", properties.shadedRows);
    file.setValue("RowNumbers", properties.rowNumbers);
    file.setValue("Totals", properties.totals);
    file.endGroup();
    file.sync();
    if (file.status() == QSettings::AccessError)
        refuse();
}

}  // namespace report
