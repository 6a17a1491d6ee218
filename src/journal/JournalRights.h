#pragma once

#include "Rights.h"

#include <optional>

namespace lanzhou {

// The journal's commands: indices of its Cmd array.
namespace JournalCmd {
enum : int
{
    Query = 0,
    Export = 1,
    Close = 2,
    LateEntry = 3,
    Modify = 4,
    DeleteOne = 5,
    BulkDelete = 6,
    History = 7
};
}

// The right a journal command needs; the query and closing need none.
constexpr std::optional<Right> JournalCommandRight(int index)
{
    switch (index) {
    case JournalCmd::Export:
        return Right::Export;
    case JournalCmd::LateEntry:
        return Right::LateEntry;
    case JournalCmd::Modify:
        return Right::ModifyEntry;
    case JournalCmd::DeleteOne:
        return Right::DeleteEntry;
    case JournalCmd::BulkDelete:
        return Right::BulkDelete;
    // The change history shows what the journal no longer lists.
    case JournalCmd::History:
        return Right::Journal;
    default:
        return std::nullopt;
    }
}

} // namespace lanzhou
