// The operator's rights: read from the operator's row of TE1 (F60 to F67) and applied to the frame's menus
// and the session's flags. The operator code alone identifies the administrator, whose row is not read.
#pragma once

/// Call after each valid login. Also sets the frame's title, which shows the company's name. Raises
/// DatabaseError.
void ApplyRights();
