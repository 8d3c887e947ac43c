// What a form is doing with the record on its card or with the rows of its entry grid.
#pragma once

#include <cstdint>

/// The values of a form's FormMode; while the operator may type it is Adding or greater.
enum FormModes : std::int16_t { Browsing = 0, Adding = 1, Editing = 2 };
