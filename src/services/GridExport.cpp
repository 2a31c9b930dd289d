#include "GridExport.h"

#include <QClipboard>
#include <QDir>
#include <QGuiApplication>
#include <QStringDecoder>
#include <QtEndian>

#include "ExportFile.h"
#include "GridRows.h"

namespace {

constexpr size_t kBlock = 65'536;  // bytes that are handed on at once

using Sink = std::function<void(std::string_view block)>;

// Takes UTF-8 and writes UTF-16, the lower byte first.
class Utf16Writer {
public:
    explicit Utf16Writer(ExportFile& file) : m_file(file) { write("\xEF\xBB\xBF"); }

    void write(std::string_view text) {
        const QByteArrayView bytes(text.data(), static_cast<qsizetype>(text.size()));
        m_units.resize(qMax(m_units.size(), m_decoder.requiredSpace(bytes.size())));
        const qsizetype count = m_decoder.appendToBuffer(m_units.data(), bytes) - m_units.data();
        qToLittleEndian<char16_t>(m_units.data(), count, m_units.data());
        m_file.write(reinterpret_cast<const char*>(m_units.constData()), count * qsizetype(sizeof(QChar)));
    }

private:
    ExportFile& m_file;
    // The byte order mark passes like any other character.
    QStringDecoder m_decoder{QStringDecoder::Utf8, QStringDecoder::Flag::ConvertInitialBom};
    QList<QChar> m_units;
};

void passOn(std::string& block, const Sink& sink, size_t limit) {
    if (block.size() <= limit)
        return;
    sink(block);
    block.clear();
}

// --- text -------------------------------------------------------------------------------------------

const QString kExporting = QStringLiteral("ارسال اطلاعات");

void writeText(const GridRows& rows, std::string_view lineEnd, const Sink& sink) {
    std::string block;
    block.reserve(2 * kBlock);
    for (const QString& title : rows.titles()) {
        block += '\t';
        appendOneLine(block, title.toUtf8());
    }
    const auto endLine = [&] {
        block += "\t  ";
        block += lineEnd;
    };
    endLine();
    const qsizetype columns = rows.titles().size();
    rows.read(kExporting, [&](const data::RowView& row) {
        for (qsizetype place = 0; place < columns; ++place) {
            block += '\t';
            appendOneLine(block, rows.cell(row, place));
        }
        endLine();
        passOn(block, sink, kBlock);
    });
    passOn(block, sink, 0);
}

// --- HTML -------------------------------------------------------------------------------------------

// What stands for a byte in a page; empty for itself.
constexpr std::string_view escapeOf(char c) {
    return c == '&' ? "&amp;" : c == '<' ? "&lt;" : c == '>' ? "&gt;" : "";
}

void appendEscaped(std::string& page, QByteArrayView text) {
    const char* plain = text.begin();
    for (const char* c = text.begin(); c != text.end(); ++c) {
        const std::string_view escape = escapeOf(*c);
        if (escape.empty())
            continue;
        page.append(plain, c);
        page += escape;
        plain = c + 1;
    }
    page.append(plain, text.end());
}

void appendHead(std::string& page, const QString& title, const QString& date) {
    const auto appendTitle = [&] { appendEscaped(page, title.toUtf8()); };
    page += "\xEF\xBB\xBF<HTML dir=rtl><HEAD><TITLE> ";
    appendTitle();
    page += "</TITLE></HEAD><BODY bgcolor=LightSteelBlue ><H3 Align=CENTER>";
    appendTitle();
    page += "</H3><TT Align=Right > در تاريخ:";
    const QStringList parts = {date.mid(8, 4), date.mid(5, 2), date.mid(0, 4)};
    appendEscaped(page, parts.join(u'/').toUtf8());
    page += "</TT><TABLE BORDER=1>";
}

void writeHtml(const GridRows& rows, const QString& title, const QString& date, const Sink& sink) {
    std::string page;
    page.reserve(2 * kBlock);
    appendHead(page, title, date);
    page += "<TR>";
    for (const QString& column : rows.titles()) {
        page += "<TH ALIGN=RIGHT bgColor=Gray>";
        appendEscaped(page, column.toUtf8());
        page += "</TH>";
    }
    page += "</TR>\n";
    constexpr std::string_view kOdd = "<TD  ALIGN=RIGHT bgColor=LightYellow ><font Face=Tahoma   size=2 >";
    constexpr std::string_view kEven = "<TD  ALIGN=RIGHT bgColor=gray ><font Face=Tahoma   size=2 >";
    const qsizetype columns = rows.titles().size();
    bool odd = true;
    rows.read(kExporting, [&](const data::RowView& row) {
        page += "<TR>";
        for (qsizetype place = 0; place < columns; ++place) {
            page += odd ? kOdd : kEven;
            appendEscaped(page, rows.cell(row, place));
            page += "</font></TD>";
        }
        page += "</TR>\n";
        odd = !odd;
        passOn(page, sink, kBlock);
    });
    page += "</TABLE></BODY></HTML>";
    passOn(page, sink, 0);
}

bool isOpen(const widgets::DataGrid& grid) {
    return grid.dataset() && grid.dataset()->active();
}

// The file's folder is made when missing; where that fails the file itself is refused.
QString exportPath(const data::HostContext& context, const widgets::DataGrid& grid, const QString& folder,
                   const QString& extension) {
    const QDir place(context.Install_Dir + u'/' + folder);
    place.mkpath(QStringLiteral("."));
    return place.filePath(grid.dataset()->objectName() + extension);
}

}  // namespace

void Copy_Grid(widgets::DataGrid& grid, bool reversed) {
    if (!isOpen(grid))
        return;
    QString text;
    writeText(GridRows(grid, reversed), "\n", [&](std::string_view block) {
        text += QString::fromUtf8(block.data(), qsizetype(block.size()));
    });
    QGuiApplication::clipboard()->setText(text);
    grid.dataset()->last();
}

void Export_Office(const data::HostContext& context, widgets::DataGrid& grid, bool reversed,
                   const QString& extension) {
    if (!isOpen(grid))
        return;
    const GridRows rows(grid, reversed);
    const bool sheet = extension.compare(QLatin1String(".XLS"), Qt::CaseInsensitive) == 0;
    ExportFile file(
        exportPath(context, grid, sheet ? QStringLiteral("EXCEL") : QStringLiteral("WORD"), extension));
    Utf16Writer writer(file);
    writeText(rows, "\r\n", [&](std::string_view block) { writer.write(block); });
    file.finish();
    file.show();
}

void Export_Html(const data::HostContext& context, widgets::DataGrid& grid, const QString& title) {
    if (!isOpen(grid))
        return;
    const GridRows rows(grid, false);
    ExportFile file(exportPath(context, grid, QStringLiteral("html"), QStringLiteral(".html")));
    writeHtml(rows, title, context.Current_Date,
              [&](std::string_view block) { file.write(block.data(), qint64(block.size())); });
    file.finish();
    file.show();
}
