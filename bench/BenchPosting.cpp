#include "Bench.h"
#include "Kuang.h"
#include "LedgerGenerator.h"

#include "AppConstants.h"
#include "LedgerList.h"

#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>

namespace lanzhou::bench {

namespace {

// From pressing the post button to the confirmation line, on a logged-in window over a large ledger.
void posting(const QStringList& backends)
{
    for (const QString& backend : backends) {
        const LedgerShape shape;
        BenchLedger ledger(backend, shape);
        test::TestContext& t = ledger.t;
        LedgerList list;
        list.append({shape.ledgerId, QStringLiteral("基准账本")});
        list.save(t.settings);
        t.settings.write(AppConstants::settingsApp(), QStringLiteral("ZBID"), AppConstants::settingsTag(),
                         shape.ledgerId);

        AppContext context = t.context();
        Kuang window(context);
        window.show();
        auto* post = window.findChild<QPushButton*>(QStringLiteral("Cmd"));
        auto* quantity = window.findChild<QLineEdit*>(QStringLiteral("Txt"));
        auto* item = window.findChild<QComboBox*>(QStringLiteral("Cmb"));
        auto* confirmation = window.findChild<QLabel*>(QStringLiteral("Lab5"));
        QTest::mouseClick(post, Qt::LeftButton);
        QTest::mouseClick(post, Qt::LeftButton);
        if (window.panel() != Kuang::EntryPanel)
            qFatal("posting bench: not logged in");
        item->setCurrentIndex(item->findText(QStringLiteral("物品0042")));

        int n = 0;
        const double median = medianMs(50, [&] {
            quantity->setText(n % 2 ? QStringLiteral("-1 基准") : QStringLiteral("+2"));
            t.clock.advance(10);
            ++n;
            QTest::mouseClick(post, Qt::LeftButton);
            if (!confirmation->text().endsWith(QStringLiteral("  已保存！")))
                qFatal("posting bench: not saved");
        });
        printFigure(QStringLiteral("post"), backend, median, peakMemoryMiB());
    }
}

const Register reg(QStringLiteral("posting"), posting);

} // namespace

} // namespace lanzhou::bench
