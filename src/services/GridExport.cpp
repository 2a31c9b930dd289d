#include "GridExport.h"

#include <QClipboard>
#include <QDesktopServices>
#include <QDir>
#include <QGuiApplication>
#include <QStringDecoder>
#include <QTemporaryFile>
#include <QUrl>
#include <QtEndian>

#include "Errors.h"
#include "GridRows.h"

namespace {

constexpr size_t kBlock = 65'536;  // bytes that are handed on at once

using Sink = std::function<void(std::string_view block)>;

// A file that stands whole or not at all: written beside its place, then moved there. Nothing waits for the
// disk; an export lost with the power is made again.
class ExportFile {
public:
    explicit ExportFile(const QString& path) : m_path(path), m_file(path + QLatin1String(".XXXXXX")) {
        if (!QDir().mkpath(QFileInfo(path).path()) || !m_file.open())
            refuse();
    }
    void write(const char* bytes, qint64 count) {
        if (m_file.write(bytes, count) != count)
            refuse();
    }
    void finish() {
        using Permission = QFileDevice::Permission;
        const bool written = m_file.flush();
        m_file.setPermissions(Permission::ReadOwner | Permission::WriteOwner | Permission::ReadGroup |
                              Permission::ReadOther);
        const QString made = m_file.fileName();
        m_file.close();
        // Renaming onto a file would wait for the disk as well.
        const bool free = written && (!QFile::exists(m_path) || QFile::remove(m_path));
        if (!free || !QFile::rename(made, m_path))
            refuse();
        m_file.setAutoRemove(false);
    }
    void show() const { QDesktopServices::openUrl(QUrl::fromLocalFile(m_path)); }

private:
    [[noreturn]] void refuse() const {
        throw data::Refusal(
            QStringLiteral("اين پرونده نوشته نشد. شايد پوشه فقط خواندني باشد، يا ديسک پر:\n") +
            data::pathInText(QDir::toNativeSeparators(m_path)));
    }

    QString m_path;
    QTemporaryFile m_file;
};

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

QString exportPath(const data::HostContext& context, const widgets::DataGrid& grid, const QString& folder,
                   const QString& extension) {
    return context.Install_Dir + u'/' + folder + u'/' + grid.dataset()->objectName() + extension;
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
