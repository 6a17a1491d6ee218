#include "MxLst.h"

#include "ui_MxLst.h"

#include "CsvExport.h"
#include "Dialogs.h"

// The journal's export: the listing as it is shown, without its rules and framed blank lines.

namespace lanzhou {

void MxLst::exportListing()
{
    if (ui->Lst2->count() == 0) {
        m_context.dialogs.inform(QStringLiteral("请先使用【统计】功能列出历史记录，才能进行导出操作！"));
        return;
    }
    const QString path = AskExportFileName(m_context, windowTitle());
    if (path.isEmpty())
        return;
    CsvFile file(path);
    // Line 1 holds the column titles; after them come the entries and the totals line.
    file.writeLine(CsvLine(ui->Lst->item(1)->text(), true));
    for (int row = 2; row < ui->Lst->count(); ++row) {
        const QString line = ui->Lst->item(row)->text();
        if (!ui->Lst2->item(row)->text().isEmpty() || line.contains(QStringLiteral("合计：")))
            file.writeLine(CsvLine(line, true));
    }
    ReportExport(m_context, path, file.finish());
}

} // namespace lanzhou
