#pragma once

namespace lanzhou {

struct AppContext;

// Before the journal's bulk delete: an operator with a password types it; one without confirms a
// warning, and his empty password is read once more so that a failed first read cannot pass for it.
// False when the batch must not run; the user has been told why.
bool ConfirmBulkDeletion(const AppContext& context);

} // namespace lanzhou
