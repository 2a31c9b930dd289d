#include "DbfExport.h"

#include <shapefil.h>

#include <QDate>
#include <QSet>
#include <algorithm>
#include <array>
#include <cstring>
#include <memory>

#include "CodePage.h"
#include "Errors.h"
#include "ExportFile.h"
#include "Progress.h"

namespace {

using data::ColumnInfo;
using data::ColumnType;
using data::RowView;

// What the format and its readers bear.
constexpr int kNameLength = 10;
constexpr int kMostFields = 255;
constexpr int kMostCharacters = 254;
constexpr int kMostDigits = 18;
constexpr int kMostDecimals = 15;
constexpr int kIntegerWidth = 11;
constexpr char kEndOfFile = 0x1A;

// --- the file ---------------------------------------------------------------------------------------

// Where shapelib writes: a file beside the target that takes its place when it is complete.
class Target {
public:
    explicit Target(const QString& path) : m_export(path), m_file(m_export.device()) {}

    [[noreturn]] void refuse() const { m_export.refuse(); }

    // A table of the library's that writes here. `languageDriver` is what byte 29 of the header says.
    DBFHandle create(int languageDriver) {
        const QByteArray codePage = "LDID/" + QByteArray::number(languageDriver);
        SAHooks hooks = kHooks;
        opening() = this;
        DBFHandle table = DBFCreateLL("table.dbf", codePage.constData(), &hooks);
        if (!table)
            refuse();
        DBFSetWriteEndOfFileChar(table, 0);  // once, at the end: see finish
        return table;
    }

    // After the table is closed.
    void finish() {
        if (!m_file.seek(m_file.size()))
            refuse();
        m_export.write(&kEndOfFile, 1);
        m_export.finish();
    }

private:
    static Target& of(SAFile file) { return *reinterpret_cast<Target*>(file); }
    // The target that the library, which knows files by their names only, is about to open.
    static Target*& opening() {
        static Target* target = nullptr;
        return target;
    }

    static SAFile open(const char*, const char*) {
        opening()->m_file.seek(0);
        return reinterpret_cast<SAFile>(opening());
    }
    // Only the header is ever read again, to note in it how many rows there are.
    static SAOffset read(void* bytes, SAOffset size, SAOffset count, SAFile file) {
        std::memcpy(bytes, of(file).m_header.data(), std::min<size_t>(size * count, kHeaderSize));
        return count;
    }
    static SAOffset write(void* bytes, SAOffset size, SAOffset count, SAFile file) {
        Target& target = of(file);
        const auto length = static_cast<qint64>(size) * static_cast<qint64>(count);
        if (length >= kHeaderSize && target.m_file.pos() == 0)
            std::memcpy(target.m_header.data(), bytes, kHeaderSize);
        return target.m_file.write(static_cast<const char*>(bytes), length) == length ? count : 0;
    }
    static SAOffset seek(SAFile file, SAOffset offset, int) {
        return of(file).m_file.seek(static_cast<qint64>(offset)) ? 0 : 1;
    }
    static SAOffset tell(SAFile file) { return static_cast<SAOffset>(of(file).m_file.pos()); }
    static int flush(SAFile) { return 0; }
    static int close(SAFile) { return 0; }
    static int remove(const char*) { return 0; }
    static void error(const char*) {}

    static constexpr int kHeaderSize = 32;
    static constexpr SAHooks kHooks = {open, read, write, seek, tell, flush, close, remove, error, atof};

    ExportFile m_export;
    QSaveFile& m_file;
    std::array<char, kHeaderSize> m_header{};
};

// --- fields -----------------------------------------------------------------------------------------

struct Field {
    QString column;
    QString title;  // as the operator knows it
    ColumnType type = ColumnType::Text;
    QByteArray name;
    int width = 0;
    int decimals = 0;
    int offset = 0;  // in the record

    bool isNumber() const { return type == ColumnType::Integer || type == ColumnType::Real; }
};

[[noreturn]] void refuseValue(const Field& field) {
    throw data::Refusal(QStringLiteral("مقداري از ستون «%1» در پرونده DBF جا نمي گيرد: متن تا %2 نويسه و عدد "
                                       "تا %3 رقم، که تا %4 رقم آن اعشار باشد. پرونده اي ساخته نشد.")
                            .arg(field.title)
                            .arg(kMostCharacters)
                            .arg(kMostDigits)
                            .arg(kMostDecimals));
}

QByteArray fieldName(const QString& column, QSet<QByteArray>& taken) {
    QByteArray whole = column.toUpper().toLatin1();
    for (char& letter : whole)
        if (!(letter >= 'A' && letter <= 'Z') && !(letter >= '0' && letter <= '9'))
            letter = '_';
    QByteArray name = whole.left(kNameLength);
    for (int number = 2; taken.contains(name); ++number) {
        const QByteArray end = '_' + QByteArray::number(number);
        name = whole.left(kNameLength - end.size()) + end;
    }
    taken.insert(name);
    return name;
}

QString titleOf(const widgets::DataGrid& grid, const QString& field) {
    for (const widgets::GridColumn& column : grid.gridColumns())
        if (column.field.compare(field, Qt::CaseInsensitive) == 0 && !column.title.trimmed().isEmpty())
            return column.title.trimmed();
    return field;
}

// The fields of the dataset's columns; those without a width must be measured.
QList<Field> fieldsOf(const widgets::DataGrid& grid) {
    const QList<ColumnInfo>& columns = grid.dataset()->columns();
    if (columns.size() > kMostFields)
        throw data::Refusal(QStringLiteral("جدول %1 ستون دارد و پرونده DBF بيش از %2 ستون نمي پذيرد.")
                                .arg(columns.size())
                                .arg(kMostFields));
    QList<Field> fields;
    QSet<QByteArray> taken;
    for (const ColumnInfo& column : columns) {
        Field field{.column = column.name,
                    .title = titleOf(grid, column.name),
                    .type = column.type,
                    .name = fieldName(column.name, taken)};
        if (column.type == ColumnType::Text && column.length <= kMostCharacters)
            field.width = column.length;
        fields.append(field);
    }
    return fields;
}

// A binary value is written as its hexadecimal digits.
QByteArray binaryText(const RowView& row, int column) {
    return row.value(column).toByteArray().toHex();
}

int characters(QByteArrayView utf8) {
    return static_cast<int>(
        std::count_if(utf8.begin(), utf8.end(), [](char byte) { return (byte & 0xC0) != 0x80; }));
}

// A number without an exponent.
struct Digits {
    explicit Digits(QByteArrayView text) {
        negative = text.startsWith('-');
        if (negative)
            text = text.sliced(1);
        const qsizetype point = text.indexOf('.');
        whole = point < 0 ? text : text.first(point);
        fraction = point < 0 ? QByteArrayView() : text.sliced(point + 1);
        while (fraction.endsWith('0'))
            fraction.chop(1);
    }
    bool negative;
    QByteArrayView whole, fraction;
};

// `kept` holds the text where it had to be written anew.
QByteArrayView withoutExponent(QByteArrayView number, QByteArray& kept) {
    if (number.indexOf('e') < 0 && number.indexOf('E') < 0)
        return number;
    kept = QByteArray::number(number.toByteArray().toDouble(), 'f', QLocale::FloatingPointShortest);
    return kept;
}

// How much room the values of some columns take.
class Measure {
public:
    explicit Measure(QList<Field>& fields) {
        for (Field& field : fields)
            if (field.width == 0)
                m_places.append({&field});
    }

    bool isNeeded() const { return !m_places.isEmpty(); }

    QStringList columns() const {
        QStringList names;
        for (const Place& place : m_places)
            names.append(place.field->column);
        return names;
    }

    void look(const RowView& row) {
        for (int column = 0; column < m_places.size(); ++column) {
            Place& place = m_places[column];
            if (place.field->isNumber())
                lookAtNumber(place, row.text(column));
            else if (place.field->type == ColumnType::Binary)
                place.length = std::max(place.length, static_cast<int>(binaryText(row, column).size()));
            else
                place.length = std::max(place.length, characters(row.text(column)));
        }
    }

    void finish() {
        for (Place& place : m_places) {
            Field& field = *place.field;
            const bool fits = field.isNumber() ? place.decimals <= kMostDecimals &&
                                                     place.length + place.decimals <= kMostDigits
                                               : place.length <= kMostCharacters;
            if (!fits)
                refuseValue(field);
            field.decimals = place.decimals;
            const int point = field.decimals > 0 ? field.decimals + 1 : 0;
            field.width = field.isNumber() ? std::max(kIntegerWidth, place.length + place.sign + point)
                                           : std::max(1, place.length);
        }
    }

private:
    struct Place {
        Field* field;
        int length = 0;  // characters, or digits before the point
        int decimals = 0;
        int sign = 0;
    };

    void lookAtNumber(Place& place, QByteArrayView text) {
        const Digits digits(withoutExponent(text, m_kept));
        place.length = std::max(place.length, static_cast<int>(digits.whole.size()));
        place.decimals = std::max(place.decimals, static_cast<int>(digits.fraction.size()));
        place.sign |= digits.negative ? 1 : 0;
    }

    QList<Place> m_places;
    QByteArray m_kept;
};

// --- values -----------------------------------------------------------------------------------------

// Windows-1256 of a text that holds letters beyond it: folded as the database folds them, or refused.
QByteArray foldedText(QByteArrayView utf8) {
    const QString text = data::foldToCodePage(data::foldDigits(QString::fromUtf8(utf8)));
    QByteArray bytes(text.size(), Qt::Uninitialized);
    for (qsizetype i = 0; i < text.size(); ++i)
        bytes[i] = static_cast<char>(data::codePageByte(text[i]));
    return bytes;
}

// Appends the code page's bytes; false at a letter that it does not hold.
bool appendWindows(QByteArrayView utf8, QByteArray& bytes) {
    for (qsizetype i = 0; i < utf8.size(); ++i) {
        const auto lead = static_cast<uchar>(utf8[i]);
        if (lead < 0x80) {
            bytes.append(static_cast<char>(lead));
            continue;
        }
        const int more = lead < 0xE0 ? 1 : 2;
        if (lead >= 0xF0 || i + more >= utf8.size())
            return false;
        char16_t code = lead & (more == 1 ? 0x1F : 0x0F);
        for (int step = 0; step < more; ++step)
            code = static_cast<char16_t>(code << 6 | (utf8[++i] & 0x3F));
        const uchar byte = data::codePageByte(code);
        if (byte == 0)
            return false;
        bytes.append(static_cast<char>(byte));
    }
    return true;
}

bool isAscii(QByteArrayView text) {
    return std::all_of(text.begin(), text.end(), [](char byte) { return static_cast<uchar>(byte) < 0x80; });
}

// One row after the other, as the file holds it.
class Record {
public:
    Record(const QList<Field>& fields, int length, DbfText text)
        : m_fields(fields), m_bytes(length, ' '), m_text(text) {}

    char* bytes() { return m_bytes.data(); }

    void take(const RowView& row) {
        std::memset(m_bytes.data(), ' ', static_cast<size_t>(m_bytes.size()));
        for (int column = 0; column < m_fields.size(); ++column) {
            const Field& field = m_fields[column];
            if (field.type == ColumnType::Binary)
                putText(field, binaryText(row, column));
            else if (field.isNumber())
                putNumber(field, row.text(column));
            else
                putText(field, row.text(column));
        }
    }

private:
    void putText(const Field& field, QByteArrayView utf8) {
        // A file in visual order would show the blanks at a text's end before it.
        while (utf8.endsWith(' '))
            utf8.chop(1);
        if (isAscii(utf8))
            return put(field, utf8);
        m_converted.resize(0);
        if (m_text == DbfText::Dos)
            m_converted = Dos_Persian(QString::fromUtf8(utf8));
        else if (!appendWindows(utf8, m_converted))
            m_converted = foldedText(utf8);
        put(field, m_converted);
    }

    void put(const Field& field, QByteArrayView bytes) {
        if (bytes.size() > field.width)
            refuseValue(field);
        std::copy(bytes.begin(), bytes.end(), m_bytes.data() + field.offset);
    }

    void putNumber(const Field& field, QByteArrayView text) {
        if (text.isEmpty())
            return;
        const Digits digits(withoutExponent(text, m_converted));
        const qsizetype point = field.decimals > 0 ? field.decimals + 1 : 0;
        const qsizetype length = digits.whole.size() + (digits.negative ? 1 : 0) + point;
        if (length > field.width || digits.fraction.size() > field.decimals)
            refuseValue(field);
        char* to = m_bytes.data() + field.offset + field.width - length;
        if (digits.negative)
            *to++ = '-';
        to = std::copy(digits.whole.begin(), digits.whole.end(), to);
        if (point == 0)
            return;
        *to++ = '.';
        to = std::copy(digits.fraction.begin(), digits.fraction.end(), to);
        std::fill_n(to, field.decimals - digits.fraction.size(), '0');
    }

    const QList<Field>& m_fields;
    QByteArray m_bytes;
    QByteArray m_converted;
    DbfText m_text;
};

// Adds the fields to the table and notes where each stands; returns the length of a record.
int addFields(DBFHandle table, QList<Field>& fields) {
    int offset = 1;  // after the mark of a deleted row
    for (Field& field : fields) {
        field.offset = offset;
        offset += field.width;
        DBFAddNativeFieldType(table, field.name.constData(), field.isNumber() ? 'N' : 'C', field.width,
                              field.decimals);
    }
    return offset;
}

}  // namespace

void Export_Dbf(widgets::DataGrid& grid, const QString& file, DbfText text) {
    constexpr int kWindowsDriver = 0x7E, kNoDriver = 0;
    data::Dataset& rows = *grid.dataset();
    grid.commitCell();
    rows.checkBrowseMode();

    QList<Field> fields = fieldsOf(grid);
    Measure measure(fields);
    widgets::Progress progress(QStringLiteral("در حال ساختن پرونده DBF ..."),
                               qint64(rows.recordCount()) * (measure.isNeeded() ? 2 : 1));
    qint64 done = 0;
    const auto stream = [&](const QStringList& columns, const std::function<void(const RowView&)>& take) {
        rows.connection()->stream(
            rows.selection(columns), [](const QList<ColumnInfo>&) {},
            [&](const RowView& row) {
                take(row);
                progress.advance(++done);
                return true;
            });
    };
    if (measure.isNeeded())
        stream(measure.columns(), [&](const RowView& row) { measure.look(row); });
    measure.finish();

    Target target(file);
    std::unique_ptr<DBFInfo, void (*)(DBFHandle)> table(
        target.create(text == DbfText::Windows ? kWindowsDriver : kNoDriver), DBFClose);
    const QDate today = QDate::currentDate();
    DBFSetLastModifiedDate(table.get(), today.year() - 1900, today.month(), today.day());
    Record record(fields, addFields(table.get(), fields), text);
    QStringList columns;
    for (const Field& field : fields)
        columns.append(field.column);
    stream(columns, [&, number = 0](const RowView& row) mutable {
        record.take(row);
        if (!DBFWriteTuple(table.get(), number++, record.bytes()))
            target.refuse();
    });
    table.reset();
    target.finish();
}
