#pragma once

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
    BulkDelete = 6
};
}

// The rights position a journal command needs, 0 when it needs none: export 8, and index + 7 for
// late entry, modify, delete and bulk delete (10 to 13).
constexpr int JournalCommandRight(int index)
{
    if (index == JournalCmd::Export)
        return 8;
    return index >= JournalCmd::LateEntry && index <= JournalCmd::BulkDelete ? index + 7 : 0;
}

} // namespace lanzhou
