// A file that an export makes: it stands whole or not at all, and what was there before stays until then.
#pragma once

#include <QSaveFile>

class ExportFile {
public:
    // Refusal when the file cannot be made there; a folder or a device of that name is never replaced.
    explicit ExportFile(const QString& path);

    void write(const char* bytes, qint64 count);
    QSaveFile& device() { return m_file; }
    // The file takes its place.
    void finish();
    // Opens it with the program of its kind. Where the platform has none the operator reads where it is.
    void show() const;

    [[noreturn]] void refuse() const;

private:
    QSaveFile m_file;
};
