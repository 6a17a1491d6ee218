#pragma once

namespace lanzhou {

// The command that copies a ledger between ledger databases, without a window:
//   lanzhou --copy-ledger ID [--from ADDRESS] --to ADDRESS
// --from defaults to the program's own database, chosen as at start-up.
bool IsCopyCommand(int argc, char** argv);
// Prints each table's rows on both sides and what was copied; answers the exit code, 1 on any failure
// (said on stderr), which leaves the target as it was.
int RunCopyCommand(int argc, char** argv);

} // namespace lanzhou
