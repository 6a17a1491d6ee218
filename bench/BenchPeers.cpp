#include "Bench.h"
#include "LedgerGenerator.h"

#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <QTextStream>

#include <cstdio>

namespace lanzhou::bench {

namespace {

// The generated ledger as a plain-text journal that ledger-cli and hledger both read: one transaction
// per entry, the item as an account under 物品, the other side balancing it.
void writeJournal(test::TestContext& t, const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly | QIODevice::Truncate))
        qFatal("peers: cannot write %s", qPrintable(path));
    QTextStream out(&file);
    for (const QStringList& row : t.rows(QStringLiteral("select TM,ID,ITEM,SL from Zhang order by TM,ID"))) {
        out << QString(row.at(0)).replace(u'-', u'/').left(10) << QStringLiteral(" * ") << row.at(1) << u'\n'
            << QStringLiteral("    物品:") << row.at(2) << QStringLiteral("    ") << row.at(3) << u'\n'
            << QStringLiteral("    变动\n\n");
    }
}

// A peer that needs several runs for one figure runs them in one shell command.
QStringList inShell(const QString& script)
{
    return {QStringLiteral("sh"), QStringLiteral("-c"), script};
}

struct PeerRun
{
    double medianMs = 0;
    double peakMiB = 0;
};

// Runs the command five times under GNU time; the median wall time and the largest resident size.
PeerRun timePeer(const QStringList& command)
{
    PeerRun run;
    run.medianMs = medianMs(5, [&] {
        QProcess process;
        process.start(QStringLiteral("/usr/bin/time"),
                      QStringList{QStringLiteral("-f"), QStringLiteral("%M")} + command);
        if (!process.waitForFinished(600000) || process.exitCode() != 0)
            qFatal("peers: %s failed: %s", qPrintable(command.join(u' ')),
                   process.readAllStandardError().constData());
        const QList<QByteArray> lines = process.readAllStandardError().trimmed().split('\n');
        run.peakMiB = qMax(run.peakMiB, lines.constLast().toDouble() / 1024.0);
    });
    return run;
}

// The same work with ledger-cli and hledger on the same generated entries: the year's register with
// balances carried in from before (journal-balance), the year's register by date (journal-time), the
// year's summary, every item's total (balance-list), and one item's total, which is what a plain-text
// tool does to show it after an entry is added (post).
// Then each of our figures against the best peer.
void peers(const QStringList&)
{
    const LedgerShape shape;
    BenchLedger ledger(QStringLiteral("sqlite"), shape);
    QTemporaryDir dir;
    const QString journal = dir.filePath(QStringLiteral("ledger.journal"));
    writeJournal(ledger.t, journal);
    const QString from = QStringLiteral("%1-01-01").arg(shape.year);
    const QString to = QStringLiteral("%1-01-01").arg(shape.year + 1);

    const std::map<QString, std::map<QString, QStringList>> commands{
        {QStringLiteral("journal-balance"),
         {{QStringLiteral("ledger"),
           {QStringLiteral("ledger"), QStringLiteral("-f"), journal, QStringLiteral("register"),
            QStringLiteral("^物品"), QStringLiteral("--sort"), QStringLiteral("account"),
            QStringLiteral("-b"), from, QStringLiteral("-e"), to}},
          {QStringLiteral("hledger"),
           {QStringLiteral("hledger"), QStringLiteral("-f"), journal, QStringLiteral("register"),
            QStringLiteral("物品"), QStringLiteral("-H"), QStringLiteral("-b"), from, QStringLiteral("-e"),
            to}}}},
        {QStringLiteral("journal-time"),
         {{QStringLiteral("ledger"),
           {QStringLiteral("ledger"), QStringLiteral("-f"), journal, QStringLiteral("register"),
            QStringLiteral("^物品"), QStringLiteral("-b"), from, QStringLiteral("-e"), to}},
          {QStringLiteral("hledger"),
           {QStringLiteral("hledger"), QStringLiteral("-f"), journal, QStringLiteral("register"),
            QStringLiteral("物品"), QStringLiteral("-b"), from, QStringLiteral("-e"), to}}}},
        // The summary's four figures per item: the balances before the year, then its increases and
        // its decreases (the closing figure follows from them, as in the summary).
        {QStringLiteral("summary"),
         {{QStringLiteral("ledger"),
           inShell(QStringLiteral(
                       "ledger -f %1 balance ^物品 --flat -e %2 >/dev/null && "
                       "ledger -f %1 balance ^物品 --flat -b %2 -e %3 --limit 'amount>=0' >/dev/null && "
                       "ledger -f %1 balance ^物品 --flat -b %2 -e %3 --limit 'amount<0' >/dev/null")
                       .arg(journal, from, to))},
          {QStringLiteral("hledger"),
           inShell(QStringLiteral("hledger -f %1 balance 物品 -e %2 >/dev/null && "
                                  "hledger -f %1 balance 物品 -b %2 -e %3 'amt:>=0' >/dev/null && "
                                  "hledger -f %1 balance 物品 -b %2 -e %3 'amt:<0' >/dev/null")
                       .arg(journal, from, to))}}},
        // The balance list: every item's total.
        {QStringLiteral("balance-list"),
         {{QStringLiteral("ledger"),
           {QStringLiteral("ledger"), QStringLiteral("-f"), journal, QStringLiteral("balance"),
            QStringLiteral("^物品"), QStringLiteral("--flat")}},
          {QStringLiteral("hledger"),
           {QStringLiteral("hledger"), QStringLiteral("-f"), journal, QStringLiteral("balance"),
            QStringLiteral("物品")}}}},
        {QStringLiteral("post"),
         {{QStringLiteral("ledger"),
           {QStringLiteral("ledger"), QStringLiteral("-f"), journal, QStringLiteral("balance"),
            QStringLiteral("^物品:物品0042$")}},
          {QStringLiteral("hledger"),
           {QStringLiteral("hledger"), QStringLiteral("-f"), journal, QStringLiteral("balance"),
            QStringLiteral("物品:物品0042$")}}}}};
    std::map<QString, double> best;
    for (const auto& [name, byPeer] : commands) {
        for (const auto& [peer, command] : byPeer) {
            const PeerRun run = timePeer(command);
            printFigure(name, peer, run.medianMs, run.peakMiB);
            const auto known = best.find(name);
            best[name] = known == best.end() ? run.medianMs : qMin(known->second, run.medianMs);
        }
    }
    // "ratio" below 1: ours is faster than the best peer.
    for (const auto& [name, byBackend] : printedFigures()) {
        if (!best.count(name))
            continue;
        for (const auto& [backend, ms] : byBackend)
            if (backend != QLatin1String("ledger") && backend != QLatin1String("hledger"))
                std::printf("BENCH %s %s/best-peer ratio=%.3f\n", qPrintable(name), qPrintable(backend),
                            ms / best.at(name));
    }
    std::fflush(stdout);
}

const Register reg(QStringLiteral("peers"), peers);

} // namespace

} // namespace lanzhou::bench
