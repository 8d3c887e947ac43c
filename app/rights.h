// What the operator may do, read from his row of TE1 (F60 to F67) and spread over the frame's menus and the
// session's flags. The administrator is known by his code alone; his row is not asked.
#pragma once

/// After each good login. Sets the frame's title too, by the company's name. Raises DatabaseError.
void ApplyRights();
