#include "FormLook.h"

#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QPalette>
#include <QSet>
#include <QSettings>
#include <QToolTip>
#include <array>

#include "Components.h"
#include "Errors.h"
#include "SettingsSize.h"
#include "Untfmsg.h"

namespace {

using widgets::CaptionBar;
using widgets::DataGrid;
using widgets::Form;
using widgets::Panel;
using widgets::Shape;

struct NamedColor {
    QLatin1String name;
    QRgb color;
};

// The platform's colour constants, and the system colours as this program draws them.
constexpr NamedColor kNamedColors[] = {
    {QLatin1String("clBlack"), 0x000000},
    {QLatin1String("clMaroon"), 0x800000},
    {QLatin1String("clGreen"), 0x008000},
    {QLatin1String("clOlive"), 0x808000},
    {QLatin1String("clNavy"), 0x000080},
    {QLatin1String("clPurple"), 0x800080},
    {QLatin1String("clTeal"), 0x008080},
    {QLatin1String("clGray"), 0x808080},
    {QLatin1String("clSilver"), 0xC0C0C0},
    {QLatin1String("clRed"), 0xFF0000},
    {QLatin1String("clLime"), 0x00FF00},
    {QLatin1String("clYellow"), 0xFFFF00},
    {QLatin1String("clBlue"), 0x0000FF},
    {QLatin1String("clFuchsia"), 0xFF00FF},
    {QLatin1String("clAqua"), 0x00FFFF},
    {QLatin1String("clLtGray"), 0xC0C0C0},
    {QLatin1String("clDkGray"), 0x808080},
    {QLatin1String("clWhite"), 0xFFFFFF},
    {QLatin1String("clMoneyGreen"), 0xC0DCC0},
    {QLatin1String("clSkyBlue"), 0xA6CAF0},
    {QLatin1String("clCream"), 0xFFFBF0},
    {QLatin1String("clMedGray"), 0xA0A0A4},
    {QLatin1String("clScrollBar"), 0xC8C8C8},
    {QLatin1String("clBackground"), 0x3A6EA5},
    {QLatin1String("clActiveCaption"), 0x1F5C99},
    {QLatin1String("clInactiveCaption"), 0xBFCDDB},
    {QLatin1String("clMenu"), 0xF0F0F0},
    {QLatin1String("clWindow"), 0xFFFFFF},
    {QLatin1String("clWindowFrame"), 0x646464},
    {QLatin1String("clMenuText"), 0x000000},
    {QLatin1String("clWindowText"), 0x000000},
    {QLatin1String("clCaptionText"), 0xFFFFFF},
    {QLatin1String("clActiveBorder"), 0xB4B4B4},
    {QLatin1String("clInactiveBorder"), 0xF4F7FC},
    {QLatin1String("clAppWorkSpace"), 0xABABAB},
    {QLatin1String("clHighlight"), 0x1F5C99},
    {QLatin1String("clHighlightText"), 0xFFFFFF},
    {QLatin1String("clBtnFace"), 0xF0F0F0},
    {QLatin1String("clBtnShadow"), 0xA0A0A0},
    {QLatin1String("clGrayText"), 0x6D6D6D},
    {QLatin1String("clBtnText"), 0x000000},
    {QLatin1String("clInactiveCaptionText"), 0x434E54},
    {QLatin1String("clBtnHighlight"), 0xFFFFFF},
    {QLatin1String("cl3DDkShadow"), 0x696969},
    {QLatin1String("cl3DLight"), 0xE3E3E3},
    {QLatin1String("clInfoText"), 0x000000},
    {QLatin1String("clInfoBk"), 0xFFFFE1},
    {QLatin1String("clHotLight"), 0x0066CC},
    {QLatin1String("clMenuBar"), 0xF0F0F0},
    {QLatin1String("clMenuHighlight"), 0x1F5C99},
    {QLatin1String("clGradientActiveCaption"), 0x1F5C99},
    {QLatin1String("clGradientInactiveCaption"), 0xBFCDDB},
};

enum Key {
    DialogColor,
    CaptionBColor,
    CaptionFColor,
    TextABColor,
    TextAFColor,
    TextEBColor,
    TextEFColor,
    LabelColor,
    GridTextBAColor,
    GridTextBRColor,
    GridTextBSColor,
    GridTextFAColor,
    GridTextFRColor,
    GridTextFSColor,
    GridCaptionBAColor,
    GridCaptionBRColor,
    GridCaptionBSColor,
    GridCaptionFAColor,
    GridCaptionFRColor,
    GridCaptionFSColor,
    HintColor,
    KeyCount
};

struct SchemeEntry {
    QLatin1String name;
    QLatin1String fallback;
};

constexpr std::array<SchemeEntry, KeyCount> kScheme = {{
    {QLatin1String("DialogColor"), QLatin1String("clBtnFace")},
    {QLatin1String("CaptionBColor"), QLatin1String("clHighlight")},
    {QLatin1String("CaptionFColor"), QLatin1String("clWhite")},
    {QLatin1String("TextABColor"), QLatin1String("clWhite")},
    {QLatin1String("TextAFColor"), QLatin1String("clBlack")},
    {QLatin1String("TextEBColor"), QLatin1String("clBtnFace")},
    {QLatin1String("TextEFColor"), QLatin1String("clBlack")},
    {QLatin1String("LabelColor"), QLatin1String("clBlack")},
    {QLatin1String("GridTextBAColor"), QLatin1String("0x00E1FFFF")},
    {QLatin1String("GridTextBRColor"), QLatin1String("0x009C7863")},
    {QLatin1String("GridTextBSColor"), QLatin1String("0x00E1FFFF")},
    {QLatin1String("GridTextFAColor"), QLatin1String("clBlack")},
    {QLatin1String("GridTextFRColor"), QLatin1String("clYellow")},
    {QLatin1String("GridTextFSColor"), QLatin1String("clBlack")},
    {QLatin1String("GridCaptionBAColor"), QLatin1String("clBtnFace")},
    {QLatin1String("GridCaptionBRColor"), QLatin1String("clBtnFace")},
    {QLatin1String("GridCaptionBSColor"), QLatin1String("clBtnFace")},
    {QLatin1String("GridCaptionFAColor"), QLatin1String("clBlack")},
    {QLatin1String("GridCaptionFRColor"), QLatin1String("clBlack")},
    {QLatin1String("GridCaptionFSColor"), QLatin1String("clRed")},
    {QLatin1String("HintColor"), QLatin1String("clYellow")},
}};

using Scheme = std::array<QColor, KeyCount>;

// Once: a page that is shown again would otherwise repeat it for ever.
void tellOnce(const QString& text) {
    static QSet<QString> told;
    if (told.contains(text))
        return;
    told.insert(text);
    Show_Msg(text, QString(), QStringLiteral("1ER"));
}

void reportBadColor(const QString& file, const QString& key, const QString& value) {
    constexpr int kShown = 40;
    tellOnce(QStringLiteral("رنگ «%1» براي %2 در فايل %3 شناخته نيست. آن را اصلاح کنيد؛ اکنون رنگ پيش فرض به "
                            "کار مي رود.")
                 .arg(value.left(kShown), key, data::pathInText(file)));
}

// The file's values by their keys; none where it cannot be a file of colours.
QHash<QString, QString> readFile(const QString& file) {
    QHash<QString, QString> said;
    try {
        data::requireSettingsSize(file);
    } catch (const data::Refusal& refusal) {
        tellOnce(refusal.text());
        return said;
    }
    const QSettings settings(file, QSettings::IniFormat);
    // Sections and keys of such a file count in any letter case.
    for (const QString& key : settings.allKeys())
        said.insert(key.toLower(), settings.value(key).toStringList().join(u',').trimmed());
    return said;
}

Scheme readScheme(const QString& installDir) {
    const QString file = installDir + QLatin1String("/Data/OptionsColor.ini");
    const QHash<QString, QString> said = readFile(file);
    Scheme scheme;
    for (int key = 0; key < KeyCount; ++key) {
        const SchemeEntry& entry = kScheme[key];
        const QString value = said.value("color/" + QString(entry.name).toLower(), entry.fallback);
        scheme[key] = Color_From_Text(value);
        if (!scheme[key].isValid()) {
            reportBadColor(file, entry.name, value);
            scheme[key] = Color_From_Text(entry.fallback);
        }
    }
    return scheme;
}

// What cannot be used stands out from what can, whatever the scheme.
QColor disabledColor(QPalette::ColorRole role) {
    return QGuiApplication::palette().color(QPalette::Disabled, role);
}

void setPalette(QWidget& widget, const QColor& background, const QColor& text) {
    QPalette palette = widget.palette();
    palette.setColor(QPalette::Base, background);
    palette.setColor(QPalette::Window, background);
    palette.setColor(QPalette::Text, text);
    palette.setColor(QPalette::WindowText, text);
    widget.setPalette(palette);
}

void colorComponent(QWidget& widget, const Scheme& scheme) {
    static const QSet<QString> captionShapes = {QStringLiteral("Close_Shape"), QStringLiteral("Min_Shape"),
                                                QStringLiteral("Sys_Shape"), QStringLiteral("Cond_Shape")};
    if (auto* panel = qobject_cast<Panel*>(&widget)) {
        if (panel->objectName() == QLatin1String("Caption_Panel"))
            panel->setColors(scheme[CaptionBColor], scheme[CaptionFColor]);
    } else if (auto* edit = qobject_cast<QLineEdit*>(&widget)) {
        const bool readOnly = edit->isReadOnly();
        setPalette(*edit, scheme[readOnly ? TextEBColor : TextABColor],
                   scheme[readOnly ? TextEFColor : TextAFColor]);
        QPalette palette = edit->palette();
        palette.setColor(QPalette::Disabled, QPalette::Base, scheme[TextEBColor]);
        palette.setColor(QPalette::Disabled, QPalette::Text, disabledColor(QPalette::Text));
        edit->setPalette(palette);
    } else if (auto* label = qobject_cast<QLabel*>(&widget)) {
        QPalette palette = label->palette();
        palette.setColor(QPalette::WindowText, scheme[LabelColor]);
        label->setPalette(palette);
    } else if (auto* grid = qobject_cast<DataGrid*>(&widget)) {
        grid->setColors({scheme[GridTextBAColor], scheme[GridTextFAColor], scheme[GridCaptionBAColor],
                         scheme[GridCaptionFAColor], scheme[GridTextBRColor], scheme[GridTextFRColor],
                         scheme[GridCaptionBRColor], scheme[GridCaptionFRColor]});
    } else if (auto* shape = qobject_cast<Shape*>(&widget)) {
        if (captionShapes.contains(shape->objectName()))
            shape->setBrush(scheme[CaptionBColor]);
    }
}

// The components that a form owns; those of a form inside it are that form's own affair.
void colorOwned(QWidget& parent, const Scheme& scheme) {
    const auto children = parent.findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly);
    for (QWidget* child : children) {
        if (qobject_cast<Form*>(child))
            continue;
        colorComponent(*child, scheme);
        if (!qobject_cast<DataGrid*>(child) && !qobject_cast<QLineEdit*>(child))
            colorOwned(*child, scheme);
    }
}

}  // namespace

QColor Color_From_Text(const QString& text) {
    for (const NamedColor& named : kNamedColors)
        if (text.compare(named.name, Qt::CaseInsensitive) == 0)
            return QColor::fromRgb(named.color);
    bool isNumber = false;
    const uint bgr = text.startsWith(QLatin1String("0x"), Qt::CaseInsensitive) && text.size() == 10
                         ? text.mid(2).toUInt(&isNumber, 16)
                         : 0;
    if (!isNumber || bgr > 0xFFFFFF)
        return {};
    return QColor::fromRgb(bgr & 0xFF, (bgr >> 8) & 0xFF, (bgr >> 16) & 0xFF);
}

void Set_Form_Colors(data::HostContext& context, Form& form) {
    const Scheme scheme = readScheme(context.Install_Dir);
    context.Title_Color = scheme[GridCaptionFRColor].rgb() & 0xFFFFFF;
    context.Sorted_Title_Color = scheme[GridCaptionFSColor].rgb() & 0xFFFFFF;
    QPalette palette = form.palette();
    palette.setColor(QPalette::Window, scheme[DialogColor]);
    palette.setColor(QPalette::WindowText, scheme[LabelColor]);
    palette.setColor(QPalette::Disabled, QPalette::WindowText, disabledColor(QPalette::WindowText));
    form.setPalette(palette);
    form.setAutoFillBackground(true);
    QPalette hint = QToolTip::palette();
    hint.setColor(QPalette::ToolTipBase, scheme[HintColor]);
    QToolTip::setPalette(hint);
    colorOwned(form, scheme);
}

void Set_Round_Region(const QRect& rect, Form& form) {
    form.setRoundRegion(rect);
}

bool Sort_By_Column(const data::HostContext& context, data::Dataset& dataSet, DataGrid& grid,
                    int columnIndex) {
    const auto& columns = grid.gridColumns();
    // A column that shows no field of the table cannot order it.
    if (columnIndex >= 0 && dataSet.columnIndex(columns[columnIndex].field) < 0)
        return false;
    for (int column = 0; column < columns.size(); ++column)
        grid.setTitleColor(column, QColor::fromRgb(context.Title_Color));
    if (columnIndex < 0)
        return true;
    grid.setTitleColor(columnIndex, QColor::fromRgb(context.Sorted_Title_Color));
    dataSet.setIndexFieldNames(columns[columnIndex].field);
    return true;
}
