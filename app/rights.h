// What the operator may do, read from his row and spread over the frame's menus and the session's flags.
#pragma once

/// After each good login. Raises DatabaseError.
void ApplyRights();
