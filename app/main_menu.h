// The frame's menus, command palette and tool bar as tables: the order, what each row opens, and the right it
// requires.
//
// Always holds: the order of the rows is the order on the screen; a row that is not a top menu belongs to
// the nearest top menu above it.
#pragma once

#include <QStringView>

#include <span>

enum class Opens { Nothing, Child, Modal, Command, Unload };

struct MenuRow {
    QStringView name;
    QStringView caption;  ///< "-" for a separator
    bool top = false;
    Opens opens = Opens::Nothing;
    QStringView target = {};       ///< the name of the form or command in the registry
    int LB = 0;                    ///< the document kind, set before the form is shown; 0 sets none
    QStringView formCaption = {};  ///< set with LB
};

/// What no menu holds: the command palette alone opens it. Without a form or command in the registry the
/// entry is not offered.
struct PaletteRow {
    MenuRow row;
    /// Top menus, parted by blanks, of which one must be visible; empty: no right is required.
    QStringView rights = {};
    bool whileEditing =
        false;  ///< opens no form and changes no record, so an edit in progress does not matter
};

struct ToolRow {
    QStringView caption;
    QStringView key;
    QStringView right = {};  ///< the top menu that must be visible; empty: no right is required
    QStringView item = {};   ///< the menu row it triggers; empty: always refused
    QStringView icon = {};
    bool gapBefore = false;
};

std::span<const MenuRow> MenuRows();
std::span<const PaletteRow> PaletteRows();
std::span<const ToolRow> ToolRows();
