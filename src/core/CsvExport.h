#pragma once

#include <QFile>
#include <QString>
#include <QStringEncoder>

namespace lanzhou {

struct AppContext;

// Asks for a file to write with the save dialog, in the folder the session keeps for exports, offering
// `name` there when one is given; `filter` is the system's record (description, NUL, pattern). A chosen
// name that does not end in `extension` (in any case) gets it appended, and its folder is kept for the
// next export. The empty text when the user cancels.
QString AskSaveFileName(const AppContext& context, const QString& title, const QString& name,
                        const QString& filter, const QString& extension);

// Asks for the export file with the save dialog, titled after the window's caption. A name that does
// not end in ".CSV" (in any case) gets ".csv" appended. The empty text when the user cancels.
QString AskExportFileName(const AppContext& context, const QString& caption);

// A drawn line as a CSV line: every "│" becomes ",". With `collapseBlanks` runs of blanks first become
// one blank, so cells keep a single blank where they were padded.
QString CsvLine(const QString& line, bool collapseBlanks);

// An export file opened for appending: an existing file is extended, a missing one created. Lines are
// written in the system's code page (the locale's on Windows, UTF-8 elsewhere), each ended by CR LF.
// Once a write fails, `ok()` stays false.
class CsvFile
{
public:
    explicit CsvFile(const QString& path);
    void writeLine(const QString& line);
    // Flushes and closes the file; false when opening, any write or the closing failed.
    bool finish();

private:
    QFile m_file;
    QStringEncoder m_encoder;
    bool m_ok;
};

// After writing: "导出失败" when the file could not be written, otherwise the question whether to open
// the file, and on Yes the opening.
void ReportExport(const AppContext& context, const QString& path, bool written);

// Opens a file with the application the desktop associates with it; tells the user when the file is
// gone or the desktop cannot open it.
void OpenWithDesktop(const AppContext& context, const QString& path);

} // namespace lanzhou
